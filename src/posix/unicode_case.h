#pragma once

#include <string>
#include <string_view>

namespace brovin::posix {

/// The lower case of one character by the simple mappings of the Unicode tables, whatever the user's locale.
[[nodiscard]] char32_t lowerCase(char32_t character);

/// The text in lower case by the simple mappings of the Unicode tables, whatever the user's locale. Bytes
/// that are not UTF-8 stay as they are.
[[nodiscard]] std::string lowerCase(std::string_view text);

/// The first letter of each word in upper case, the rest in lower case. Words are divided by blanks.
[[nodiscard]] std::string properCase(std::string_view text);

} // namespace brovin::posix
