#pragma once

#include <cstddef>
#include <functional>
#include <string_view>
#include <vector>

namespace brovin::character {

/// Pixels that a piece of text takes.
using MeasureText = std::function<int(std::string_view)>;

/// Bytes of the text that make a line, without the blanks at both ends.
struct TextLine {
    std::size_t begin = 0;
    std::size_t end = 0;

    bool operator==(const TextLine&) const = default;
};

/// Breaks a text into lines of at most `width` pixels: at line feeds, between words, and inside of a word
/// that is wider than a line. A line has at least one character, however wide. The time it takes is
/// proportional to the text's length, whatever the text.
[[nodiscard]] std::vector<TextLine> breakLines(std::string_view text, int width, const MeasureText& measure);

} // namespace brovin::character
