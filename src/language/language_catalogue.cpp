#include "language/language_catalogue.h"

#include "language/language_file.h"
#include "text/numbers.h"
#include "text/strings.h"

#include <charconv>

namespace brovin::language {
namespace {

/// nullopt: not a number as a whole.
std::optional<float> versionNumber(std::string_view value) {
    value = text::trim(value);
    if (value.starts_with('+') && !value.starts_with("+-"))
        value.remove_prefix(1);
    float number = 0;
    const auto [end, error] = std::from_chars(value.data(), value.data() + value.size(), number);
    if (error != std::errc() || end != value.data() + value.size() || !(number < 1e9F))
        return std::nullopt;
    return number;
}

/// Seven significant digits, as many as the number holds: "1.10" is kept as "1.1".
std::string versionText(float number) {
    constexpr int kDigits = 7;
    std::string digits(16, '\0');
    const auto [end, error] = std::to_chars(digits.data(), digits.data() + digits.size(), number,
                                            std::chars_format::general, kDigits);
    digits.resize(static_cast<std::size_t>(end - digits.data()));
    return digits;
}

/// The last "languageid=" of a file counts, as it does when the file is loaded.
long languageIdOf(std::string_view bytes) {
    std::int32_t id = 0;
    for (const std::string& line : linesOf(bytes))
        if (const auto keyed = keyedLine(line); keyed && keyed->key == "languageid")
            id = text::leadingInt32(keyed->value).value_or(0);
    return id;
}

bool takePrefix(std::string_view& line, std::string_view prefix) {
    if (!line.starts_with(prefix))
        return false;
    line.remove_prefix(prefix.size());
    return true;
}

} // namespace

std::optional<LanguageInfo> languageInfo(std::string_view bytes) {
    LanguageInfo info;
    float version = -1;
    // They stand at the top, and every start asks this of every file: the rest is not taken apart.
    LineReader reader(bytes);
    while (const auto raw = reader.next()) {
        std::string_view line = text::trim(*raw);
        if (takePrefix(line, "language="))
            info.name = line;
        else if (takePrefix(line, "languageDesc="))
            info.description = line;
        else if (takePrefix(line, "langversion="))
            version = versionNumber(line).value_or(version);
        if (!info.name.empty() && !info.description.empty() && version >= 0) {
            info.version = versionText(version);
            return info;
        }
    }
    return std::nullopt;
}

void LanguageCatalogue::buildLanguageCatalogue() {
    langFiles.clear();
    langVersions.clear();
    langNames.clear();
    std::vector<ui::ListControl::Item> items;
    for (const std::string& file : folder_.list(".blp")) {
        const auto bytes = folder_.read(file, kLargestFile);
        const auto info = bytes ? languageInfo(*bytes) : std::nullopt;
        if (!info)
            continue;
        const std::string name = info->name + " - " + info->description;
        items.push_back({name + " v" + info->version, static_cast<int>(langFiles.size())});
        langFiles.push_back(file);
        langVersions.push_back(info->version);
        langNames.push_back(name);
    }
    page_.lstLang.setItems(std::move(items));
}

std::size_t LanguageCatalogue::slotOf(int entry) const {
    return static_cast<std::size_t>(page_.lstLang.items()[static_cast<std::size_t>(entry)].data);
}

std::optional<std::string> LanguageCatalogue::selectedFile() const {
    const int selected = page_.lstLang.selected();
    if (selected == ui::ListControl::kNone)
        return std::nullopt;
    return langFiles[slotOf(selected)];
}

std::optional<int> LanguageCatalogue::entryOf(std::string_view fileName) const {
    for (int entry = 0; entry < page_.lstLang.count(); ++entry)
        if (langFiles[slotOf(entry)] == fileName)
            return entry;
    return std::nullopt;
}

std::optional<int> LanguageCatalogue::entryFor(long languageId) const {
    constexpr long kWithoutRegion = 0x3FF; // the lower ten bits are the language, the others its region
    std::optional<int> related;
    for (int entry = 0; entry < page_.lstLang.count(); ++entry) {
        const auto bytes = folder_.read(langFiles[slotOf(entry)], kLargestFile);
        const long id = bytes ? languageIdOf(*bytes) : 0;
        if (id == languageId && id != 0)
            return entry;
        if (id != 0 && (id & kWithoutRegion) == (languageId & kWithoutRegion) && !related)
            related = entry;
    }
    return related;
}

} // namespace brovin::language
