#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace brovin::text {

/// One code point at the start of a text, or one byte that belongs to none.
struct Decoded {
    char32_t codePoint = 0; ///< of a stray byte: the byte
    std::size_t bytes = 0;  ///< how many bytes it takes, 1 to 4; 0 for an empty text
    bool valid = false;
};

/// Decodes by the table of well-formed sequences of the Unicode standard: overlong forms, surrogates and
/// values above U+10FFFF are invalid and count byte by byte.
[[nodiscard]] Decoded decodeUtf8(std::string_view text);

/// The code point that a text begins with, and the text without it; of a stray byte U+FFFD. `text` must not
/// be empty.
[[nodiscard]] char32_t takeCodePoint(std::string_view& text);

/// Appends a code point that UTF-8 can carry.
void appendUtf8(std::string& text, char32_t codePoint);

/// Appends what `map` makes of each code point; stray bytes go along as they are.
template <class Map>
void appendMapped(std::string& mapped, std::string_view text, Map map) {
    while (!text.empty()) {
        const Decoded next = decodeUtf8(text);
        if (next.valid)
            appendUtf8(mapped, map(next.codePoint));
        else
            mapped.push_back(text.front());
        text.remove_prefix(next.bytes);
    }
}

[[nodiscard]] bool isUtf8(std::string_view text);

/// The text with U+FFFD for stray bytes, controls and what is unseen or turns directions, for messages, logs
/// and lists: a file's name cannot break lines or look like another one there. Variation selectors stay.
[[nodiscard]] std::string displayText(std::string_view text);

/// How many characters, that is code points and stray bytes, a text has.
[[nodiscard]] std::size_t characterCount(std::string_view text);

/// The first `count` characters of a text, or all of it.
[[nodiscard]] std::string_view firstCharacters(std::string_view text, std::size_t count);

/// The text in `count` characters at most, 1 at least, with "…" for the middle of one that is longer.
[[nodiscard]] std::string cutInTheMiddle(std::string_view text, std::size_t count);

/// Windows-1252 as UTF-8. Its five unused bytes become the control characters of the same number.
[[nodiscard]] std::string fromWindows1252(std::string_view bytes);

} // namespace brovin::text
