#pragma once

#include <cstddef>
#include <string_view>

namespace brovin::character {

/// What stands between words: white space where a line may be broken, and the zero-width space by which
/// scripts without blanks mark such places. A no-break space belongs to a word.
[[nodiscard]] bool isBlank(char32_t letter);

/// Bytes of white space, or of other characters, that a text begins with.
[[nodiscard]] std::size_t leadingBlanks(std::string_view text);
[[nodiscard]] std::size_t leadingWord(std::string_view text);

/// Bytes of the first character of a text, which is not empty.
[[nodiscard]] std::size_t leadingCharacter(std::string_view text);

} // namespace brovin::character
