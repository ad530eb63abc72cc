#include "character/unicode_text.h"

#include <cstddef>

namespace brovin::character {
namespace {

constexpr char32_t kReplacement = 0xFFFD;

constexpr bool isSurrogate(char32_t unit) {
    return unit >= 0xD800 && unit <= 0xDFFF;
}

struct Lead {
    std::size_t bytes = 0; ///< of the sequence; 0: no sequence begins like this
    char32_t bits = 0;
    char32_t smallest = 0; ///< anything below was written longer than need be
};

Lead leadOf(char32_t first) {
    if (first < 0x80)
        return {1, first, 0};
    if (first >= 0xC2 && first <= 0xDF)
        return {2, first & 0x1FU, 0x80};
    if (first >= 0xE0 && first <= 0xEF)
        return {3, first & 0x0FU, 0x800};
    if (first >= 0xF0 && first <= 0xF4)
        return {4, first & 0x07U, 0x10000};
    return {};
}

} // namespace

char32_t takeCodePoint(std::string_view& text) {
    const auto byteAt = [&text](std::size_t i) { return char32_t{static_cast<unsigned char>(text[i])}; };
    const Lead lead = leadOf(byteAt(0));
    char32_t codePoint = lead.bits;
    bool valid = lead.bytes > 0 && lead.bytes <= text.size();
    for (std::size_t i = 1; valid && i < lead.bytes; ++i) {
        valid = (byteAt(i) & 0xC0U) == 0x80U;
        codePoint = (codePoint << 6U) | (byteAt(i) & 0x3FU);
    }
    valid = valid && codePoint >= lead.smallest && codePoint <= 0x10FFFF && !isSurrogate(codePoint);
    text.remove_prefix(valid ? lead.bytes : 1);
    return valid ? codePoint : kReplacement;
}

void appendCodePoint(std::string& text, char32_t codePoint) {
    const auto put = [&text](char32_t byte) { text.push_back(static_cast<char>(byte)); };
    const auto tail = [&put, codePoint](unsigned shift) { put(0x80U | ((codePoint >> shift) & 0x3FU)); };
    if (codePoint < 0x80) {
        put(codePoint);
    } else if (codePoint < 0x800) {
        put(0xC0U | (codePoint >> 6U));
        tail(0);
    } else if (codePoint < 0x10000) {
        put(0xE0U | (codePoint >> 12U));
        tail(6);
        tail(0);
    } else {
        put(0xF0U | (codePoint >> 18U));
        tail(12);
        tail(6);
        tail(0);
    }
}

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
            appendCodePoint(text, unit);
        } else if (unit < 0xDC00 && next >= 0xDC00 && next <= 0xDFFF) {
            appendCodePoint(text, 0x10000U + ((unit - 0xD800U) << 10U) + (next - 0xDC00U));
            i += 2;
        } else {
            appendCodePoint(text, kReplacement);
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

} // namespace brovin::character
