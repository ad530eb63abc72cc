#include "character/stage/tag_scan.h"

#include "character/letter_case.h"

#include <algorithm>
#include <array>

namespace brovin::character {
namespace {

bool isLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

/// Tags whose value is a text in which a backslash is written twice. In all others the first backslash is the
/// end, so that the next tag may follow at once.
bool holdsFreeText(std::string_view name) {
    constexpr std::array<std::string_view, 5> kFreeText = {"com", "eng", "map", "prn", "vce"};
    return std::find(kFreeText.begin(), kFreeText.end(), foldedCase(name)) != kFreeText.end();
}

/// Where the closing backslash of a free text stands; npos: nowhere. Behind a closing quotation mark a
/// backslash ends the tag even when another follows, which then begins the next tag.
std::size_t freeTextEnd(std::string_view value) {
    bool quoted = false;
    for (std::size_t i = 0; i < value.size(); ++i) {
        if (value[i] == '"')
            quoted = !quoted;
        if (value[i] != '\\')
            continue;
        const bool doubled = i + 1 < value.size() && value[i + 1] == '\\';
        const bool behindQuote = !quoted && i > 0 && value[i - 1] == '"';
        if (!doubled || behindQuote)
            return i;
        ++i;
    }
    return std::string_view::npos;
}

/// Takes a text in quotation marks from the front of `value`.
bool takeQuoted(std::string_view& value, std::string& text) {
    if (!value.starts_with('"'))
        return false;
    const std::size_t end = value.find('"', 1);
    if (end == std::string_view::npos)
        return false;
    text = unescaped(value.substr(1, end - 1));
    value.remove_prefix(end + 1);
    return true;
}

} // namespace

TagScan scanTag(std::string_view text) {
    std::size_t at = 1;
    while (at < text.size() && at <= 5 && isLetter(text[at]))
        ++at;
    const std::string_view name = text.substr(1, at - 1);
    if ((name.size() != 3 && name.size() != 4) || at == text.size())
        return {};
    if (text[at] == '\\')
        return {TagScan::Kind::Tag, name, {}, at + 1};
    const bool engine = foldedCase(name) == "eng" && (text[at] == ';' || text[at] == ':');
    if (text[at] != '=' && !engine)
        return {};
    const std::string_view value = text.substr(at + 1);
    const std::size_t end = holdsFreeText(name) ? freeTextEnd(value) : value.find('\\');
    if (end == std::string_view::npos)
        return {TagScan::Kind::Unclosed, name, value, text.size()};
    return {TagScan::Kind::Tag, name, value.substr(0, end), at + 1 + end + 1};
}

std::string unescaped(std::string_view text) {
    std::string plain;
    plain.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        plain += text[i];
        if (text.substr(i).starts_with(R"(\\)"))
            ++i;
    }
    return plain;
}

std::string_view withoutQuotes(std::string_view text) {
    if (text.size() >= 2 && text.front() == '"' && text.back() == '"')
        return text.substr(1, text.size() - 2);
    return text;
}

bool readSubstitution(std::string_view value, std::string& spoken, std::string& shown) {
    if (!takeQuoted(value, spoken) || !value.starts_with('='))
        return false;
    value.remove_prefix(1);
    return takeQuoted(value, shown) && value.empty();
}

} // namespace brovin::character
