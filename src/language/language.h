#pragma once

#include "language/language_catalogue.h"
#include "language/language_loader.h"
#include "language/language_tables.h"

namespace brovin::language {

/// The languages put together: those that are installed, the one that is loaded, and the list that chooses
/// it.
class Language {
public:
    struct Needs {
        ui::FrmOptions& form; ///< a file can set the caption of every control
        settings::Settings& settings;
        platform::ProgramFolder& folder;
        platform::Dialogs& dialogs;
        const platform::Letters& letters;
    };
    explicit Language(const Needs& needs)
        : catalogue(needs.form, needs.folder), loader({needs.form, needs.settings, catalogue, tables,
                                                       needs.folder, needs.dialogs, needs.letters}) {
        needs.form.lstLang.click = [this] { loader.lstLang_Click(); };
    }
    Language(const Language&) = delete;
    Language& operator=(const Language&) = delete;

    LanguageTables tables;
    LanguageCatalogue catalogue;
    LanguageLoader loader;
};

} // namespace brovin::language
