#include "text/utf16.h"

#include "text/utf8.h"

#include <cstddef>

namespace brovin::text {
namespace {

constexpr char32_t kInPlaceOfHalves = 0xFFFD;

constexpr bool isSurrogate(char32_t unit) {
    return unit >= 0xD800 && unit <= 0xDFFF;
}

} // namespace

std::string fromUtf16(std::span<const std::uint8_t> bytes) {
    const auto unitAt = [bytes](std::size_t i) -> char32_t {
        return i + 1 < bytes.size() ? bytes[i] | (static_cast<unsigned>(bytes[i + 1]) << 8U) : 0U;
    };
    std::string text;
    for (std::size_t i = 0;; i += 2) {
        const char32_t unit = unitAt(i);
        if (unit == 0)
            return text;
        const char32_t next = unitAt(i + 2);
        if (!isSurrogate(unit)) {
            appendUtf8(text, unit);
        } else if (unit < 0xDC00 && next >= 0xDC00 && next <= 0xDFFF) {
            appendUtf8(text, 0x10000U + ((unit - 0xD800U) << 10U) + (next - 0xDC00U));
            i += 2;
        } else {
            appendUtf8(text, kInPlaceOfHalves);
        }
    }
}

std::u16string toUtf16(std::string_view text) {
    std::u16string units;
    while (!text.empty()) {
        const char32_t codePoint = takeCodePoint(text);
        if (codePoint < 0x10000) {
            units.push_back(static_cast<char16_t>(codePoint));
        } else {
            units.push_back(static_cast<char16_t>(0xD800U + ((codePoint - 0x10000U) >> 10U)));
            units.push_back(static_cast<char16_t>(0xDC00U + (codePoint & 0x3FFU)));
        }
    }
    return units;
}

} // namespace brovin::text
