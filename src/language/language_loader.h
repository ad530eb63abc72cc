#pragma once

#include "language/language_catalogue.h"
#include "language/language_tables.h"
#include "platform/dialogs.h"
#include "platform/letters.h"
#include "platform/program_folder.h"
#include "settings/settings.h"
#include "ui/frm_options.h"

#include <string>
#include <string_view>

namespace brovin::language {

/// Reads the language file that is selected in `lstLang` and applies it to the options window and the tables.
class LanguageLoader {
public:
    struct Needs {
        ui::FrmOptions& form;
        settings::Settings& settings;
        const LanguageCatalogue& catalogue;
        LanguageTables& tables;
        platform::ProgramFolder& folder;
        platform::Dialogs& dialogs;
        const platform::Letters& letters;
    };
    explicit LanguageLoader(const Needs& needs) : needs_(needs) {}

    /// The tables are those of another language.
    ui::Event<> loaded;
    /// The user has had enough of a broken language file and wants the program gone at once.
    ui::Event<> quit;

    /// A file that lacks one of the two drop-down lists is broken: the user may go on with the first language
    /// of the list, or quit.
    void loadLanguage();
    void lstLang_Click();

private:
    void applyLine(std::string_view key, std::string_view value);
    void applyTabCaptions(std::string_view captions);
    void fill(ui::ComboBox& list, std::string_view entries, const settings::Setting& selection);
    void applyCaption(std::string_view controlName, std::string_view caption);
    void askAfterBrokenFile(const std::string& file);

    Needs needs_;
};

} // namespace brovin::language
