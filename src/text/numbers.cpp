#include "text/numbers.h"

#include <array>
#include <charconv>
#include <cmath>
#include <limits>

namespace brovin::text {
namespace {

std::string withoutBlanks(std::string_view text) {
    std::string kept;
    for (const char c : text)
        if (c != ' ' && c != '\t' && c != '\r' && c != '\n')
            kept.push_back(c);
    return kept;
}

template <class Int>
std::optional<Int> fitted(double number) {
    const double rounded = std::nearbyint(number); // the default rounding mode: halves to even
    if (rounded < std::numeric_limits<Int>::min() || rounded > std::numeric_limits<Int>::max())
        return std::nullopt;
    return static_cast<Int>(rounded);
}

} // namespace

double leadingNumber(std::string_view text) {
    const std::string kept = withoutBlanks(text);
    const char* first = kept.data();
    const char* last = first + kept.size();
    if (first != last && *first == '+')
        ++first;
    // from_chars would also take "inf" and "nan", which are words here.
    const std::string_view rest(first, static_cast<std::size_t>(last - first));
    const std::size_t start = rest.starts_with('-') ? 1 : 0;
    if (rest.size() == start || (rest[start] != '.' && (rest[start] < '0' || rest[start] > '9')))
        return 0;
    double number = 0;
    const auto [end, error] = std::from_chars(first, last, number);
    return error == std::errc() ? number : 0;
}

std::optional<std::int16_t> leadingInt16(std::string_view text) {
    return fitted<std::int16_t>(leadingNumber(text));
}

std::optional<std::int32_t> leadingInt32(std::string_view text) {
    return fitted<std::int32_t>(leadingNumber(text));
}

std::string numberText(double number) {
    std::array<char, 32> digits{};
    constexpr int kSignificant = 15;
    const auto [end, error] = std::to_chars(digits.data(), digits.data() + digits.size(), number,
                                            std::chars_format::general, kSignificant);
    return {digits.data(), end};
}

} // namespace brovin::text
