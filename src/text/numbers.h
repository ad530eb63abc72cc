#pragma once

#include <charconv>
#include <concepts>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>

namespace brovin::text {

/// The number that a text begins with: blanks are passed over, then sign, digits, decimal point and exponent
/// are read as far as they go. "12 apples" is 12; a text that begins otherwise, and one out of range, is 0.
[[nodiscard]] double leadingNumber(std::string_view text);

/// `leadingNumber` rounded to the nearest whole number, halves to the even neighbour; nullopt when that does
/// not fit the type. These are the program's 16-bit and 32-bit variables.
[[nodiscard]] std::optional<std::int16_t> leadingInt16(std::string_view text);
[[nodiscard]] std::optional<std::int32_t> leadingInt32(std::string_view text);

/// The whole text as a number of digits alone, without sign or blanks; nullopt: it is none, or does not fit.
template <std::integral Int>
[[nodiscard]] std::optional<Int> wholeNumber(std::string_view text, int base = 10) {
    Int number = 0;
    const char* const last = text.data() + text.size();
    if (text.starts_with('-'))
        return std::nullopt;
    const auto [end, error] = std::from_chars(text.data(), last, number, base);
    return error == std::errc() && end == last ? std::optional(number) : std::nullopt;
}

/// Decimal text with at most 15 significant digits, without trailing zeros, a point before decimals.
[[nodiscard]] std::string numberText(double number);

} // namespace brovin::text
