#pragma once

#include "platform/program_folder.h"
#include "ui/pages/program_page.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace brovin::language {

/// What a language file says about itself in the lines "language=", "languageDesc=" and "langversion=".
struct LanguageInfo {
    std::string name;
    std::string description;
    std::string version; ///< decimal text of a single-precision number, 0 or more, with seven digits that
                         ///< count at most
};

/// nullopt: one of the three lines is missing, or the version is none.
[[nodiscard]] std::optional<LanguageInfo> languageInfo(std::string_view bytes);

/// The installed languages: one entry of `lstLang` for each usable file, with its slot as item data.
class LanguageCatalogue {
public:
    LanguageCatalogue(ui::ProgramPage& page, platform::ProgramFolder& folder)
        : page_(page), folder_(folder) {}

    /// Lists the files anew; nothing is selected then.
    void buildLanguageCatalogue();

    /// The file of the selected entry; nullopt when none is selected.
    [[nodiscard]] std::optional<std::string> selectedFile() const;
    /// The index in `lstLang` of the entry whose file has this very name; nullopt when there is none.
    [[nodiscard]] std::optional<int> entryOf(std::string_view fileName) const;

    /// The first entry whose file is in the language of this identifier, of its very region if there is one.
    [[nodiscard]] std::optional<int> entryFor(long languageId) const;

    // By slot.
    std::vector<std::string> langFiles;
    std::vector<std::string> langVersions;
    std::vector<std::string> langNames; ///< name and description

private:
    [[nodiscard]] std::size_t slotOf(int entry) const;

    ui::ProgramPage& page_;
    platform::ProgramFolder& folder_;
};

} // namespace brovin::language
