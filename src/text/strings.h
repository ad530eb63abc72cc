#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace brovin::text {

/// The pieces between the separators. An empty text has no pieces; a separator at an end makes an empty
/// piece.
[[nodiscard]] std::vector<std::string_view> split(std::string_view text, char separator);

/// The text without blanks (U+0020) at both ends.
[[nodiscard]] std::string_view trim(std::string_view text);

/// The text with every occurrence of `what`, from the left, replaced. An empty `what` replaces nothing.
[[nodiscard]] std::string replaceAll(std::string_view text, std::string_view what, std::string_view with);

/// The same in place. A text without `what` stays as it is and costs nothing but the search.
void replaceEach(std::string& text, std::string_view what, std::string_view with);

/// The text with its first occurrence of `what` replaced.
[[nodiscard]] std::string replaceFirst(std::string_view text, std::string_view what, std::string_view with);

/// How often `what`, which is not empty, occurs from the left.
[[nodiscard]] std::size_t countOf(std::string_view text, std::string_view what);

/// Upper case A to Z in lower case, everything else as it is: for names that the program itself made up.
[[nodiscard]] std::string asciiLower(std::string_view text);

} // namespace brovin::text
