#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace brovin::character {

/// The code point that a text of UTF-8 begins with, and the text without it. A byte that belongs to none
/// gives U+FFFD. `text` must not be empty.
[[nodiscard]] char32_t takeCodePoint(std::string_view& text);

/// Appends a code point that UTF-8 can carry.
void appendCodePoint(std::string& text, char32_t codePoint);

/// UTF-16LE as UTF-8, up to the first zero unit. Half a surrogate pair becomes U+FFFD.
[[nodiscard]] std::string fromUtf16(std::span<const std::uint8_t> bytes);

/// UTF-8 as UTF-16; a byte that belongs to no code point becomes U+FFFD.
[[nodiscard]] std::u16string toUtf16(std::string_view text);

} // namespace brovin::character
