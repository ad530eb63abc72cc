#include "text/utf8.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <iterator>

namespace brovin::text {
namespace {

constexpr char32_t kReplacement = 0xFFFD;

/// What changes how other signs stand, or is itself not seen: two names could look alike, and "fdp.exe" like
/// "exe.pdf". Unicode's categories Cf, Zl and Zp, its control characters and blank fillers.
constexpr struct {
    char32_t first, last;
} kUnseen[] = {
    {0x00, 0x1F},       {0x7F, 0x9F},       {0xAD, 0xAD},       {0x34F, 0x34F},   {0x61C, 0x61C},
    {0x115F, 0x1160},   {0x17B4, 0x17B5},   {0x180B, 0x180F},   {0x200B, 0x200F}, {0x2028, 0x202E},
    {0x2060, 0x206F},   {0x3164, 0x3164},   {0xFEFF, 0xFEFF},   {0xFFA0, 0xFFA0}, {0xFFF0, 0xFFFB},
    {0x1BCA0, 0x1BCA3}, {0x1D173, 0x1D17A}, {0xE0000, 0xE0FFF},
};

bool isUnseen(char32_t c) {
    return std::any_of(std::begin(kUnseen), std::end(kUnseen),
                       [c](const auto& range) { return range.first <= c && c <= range.last; });
}

std::uint8_t byteAt(std::string_view text, std::size_t index) {
    return static_cast<std::uint8_t>(text[index]);
}

bool isAscii(char c) {
    return static_cast<std::uint8_t>(c) < 0x80;
}

struct Lead {
    std::size_t bytes;
    char32_t bits;
    char32_t smallest; ///< anything below was written longer than need be
};

Lead lead(std::uint8_t first) {
    if (first >= 0xC2 && first <= 0xDF)
        return {2, first & 0x1FU, 0x80};
    if (first >= 0xE0 && first <= 0xEF)
        return {3, first & 0x0FU, 0x800};
    if (first >= 0xF0 && first <= 0xF4)
        return {4, first & 0x07U, 0x10000};
    return {0, 0, 0};
}

} // namespace

Decoded decodeUtf8(std::string_view text) {
    if (text.empty())
        return {};
    const std::uint8_t first = byteAt(text, 0);
    if (first < 0x80)
        return {first, 1, true};
    const Decoded stray{first, 1, false};
    const Lead form = lead(first);
    if (form.bytes == 0 || form.bytes > text.size())
        return stray;
    char32_t codePoint = form.bits;
    for (std::size_t i = 1; i < form.bytes; ++i) {
        const std::uint8_t next = byteAt(text, i);
        if ((next & 0xC0U) != 0x80U)
            return stray;
        codePoint = (codePoint << 6U) | (next & 0x3FU);
    }
    const bool surrogate = codePoint >= 0xD800 && codePoint <= 0xDFFF;
    if (codePoint < form.smallest || surrogate || codePoint > 0x10FFFF)
        return stray;
    return {codePoint, form.bytes, true};
}

char32_t takeCodePoint(std::string_view& text) {
    const Decoded next = decodeUtf8(text);
    text.remove_prefix(next.bytes);
    return next.valid ? next.codePoint : kReplacement;
}

void appendUtf8(std::string& text, char32_t codePoint) {
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

bool isUtf8(std::string_view text) {
    while (true) {
        const auto* const other = std::find_if_not(text.begin(), text.end(), isAscii);
        text.remove_prefix(static_cast<std::size_t>(other - text.begin()));
        if (text.empty())
            return true;
        const Decoded next = decodeUtf8(text);
        if (!next.valid)
            return false;
        text.remove_prefix(next.bytes);
    }
}

std::string displayText(std::string_view text) {
    // A sweep shows the path of each folder, and nearly all are of such letters, or have few others.
    const auto isPlain = [](char c) { return c >= ' ' && c <= '~'; };
    std::string shown;
    shown.reserve(text.size());
    for (;;) {
        const auto* const odd = std::find_if_not(text.begin(), text.end(), isPlain);
        shown.append(text.begin(), odd);
        text.remove_prefix(static_cast<std::size_t>(odd - text.begin()));
        if (text.empty())
            return shown;
        const Decoded next = decodeUtf8(text);
        appendUtf8(shown, next.valid && !isUnseen(next.codePoint) ? next.codePoint : kReplacement);
        text.remove_prefix(next.bytes);
    }
}

std::size_t characterCount(std::string_view text) {
    std::size_t count = 0;
    for (; !text.empty(); ++count)
        text.remove_prefix(decodeUtf8(text).bytes);
    return count;
}

std::string_view firstCharacters(std::string_view text, std::size_t count) {
    std::size_t bytes = 0;
    for (; count > 0 && bytes < text.size(); --count)
        bytes += decodeUtf8(text.substr(bytes)).bytes;
    return text.substr(0, bytes);
}

std::string cutInTheMiddle(std::string_view text, std::size_t count) {
    const std::size_t all = characterCount(text);
    if (all <= count)
        return std::string(text);
    const std::size_t head = (count - 1) / 2;
    const std::size_t tail = count - 1 - head;
    const std::string_view without = firstCharacters(text, all - tail);
    return std::string(firstCharacters(text, head)).append("…").append(text.substr(without.size()));
}

std::string fromWindows1252(std::string_view bytes) {
    constexpr std::array<char32_t, 32> k80To9F = {
        0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
        0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
        0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};
    std::string text;
    text.reserve(bytes.size());
    while (!bytes.empty()) {
        const auto* const other = std::find_if_not(bytes.begin(), bytes.end(), isAscii);
        text.append(bytes.begin(), other);
        if (other == bytes.end())
            break;
        const auto byte = static_cast<std::uint8_t>(*other);
        appendUtf8(text, byte < 0xA0 ? k80To9F[byte - 0x80U] : byte);
        bytes.remove_prefix(static_cast<std::size_t>(other - bytes.begin()) + 1);
    }
    return text;
}

} // namespace brovin::text
