#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace brovin::character {

/// The outer form of a speech tag.
struct TagScan {
    enum class Kind : std::uint8_t { Tag, NotATag, Unclosed };

    Kind kind = Kind::NotATag;
    std::string_view name;  ///< three or four letters
    std::string_view value; ///< what follows the name's "=", as it stands
    std::size_t bytes = 0;  ///< with both backslashes
};

/// Looks whether a text, which begins with a single backslash, begins with a tag.
[[nodiscard]] TagScan scanTag(std::string_view text);

/// The text with one backslash for each two.
[[nodiscard]] std::string unescaped(std::string_view text);

/// The text without the quotation marks around it, if it has them.
[[nodiscard]] std::string_view withoutQuotes(std::string_view text);

/// Reads the form "spoken"="shown", quotation marks included. False: it is not of this form.
[[nodiscard]] bool readSubstitution(std::string_view value, std::string& spoken, std::string& shown);

} // namespace brovin::character
