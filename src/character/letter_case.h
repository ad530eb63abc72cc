#pragma once

#include <string>
#include <string_view>

namespace brovin::character {

/// Names of animations and states are the same when these are: the text with its capital letters made small.
/// Latin (with the letters of Europe), Greek and Cyrillic; one character always becomes one character.
[[nodiscard]] std::string foldedCase(std::string_view text);

/// The text with its small letters made capital, by the same table: both forms fold to the same.
[[nodiscard]] std::string capitals(std::string_view text);

} // namespace brovin::character
