#include "headless/json_text.h"

#include "text/utf8.h"

namespace brovin::headless {
namespace {

void appendEscaped(std::string& quoted, char32_t c) {
    static constexpr std::string_view kDigits = "0123456789abcdef";
    const auto unit = [&quoted](char32_t number) {
        quoted += "\\u";
        for (const unsigned shift : {12U, 8U, 4U, 0U})
            quoted += kDigits[(number >> shift) & 0xFU];
    };
    if (c > 0xFFFF) {
        unit(0xD800U + ((c - 0x10000U) >> 10U));
        c = 0xDC00U + (c & 0x3FFU);
    }
    unit(c);
}

/// Controls, what is not seen, and what turns the direction: the same to whoever reads the JSON, and to a
/// terminal no orders.
bool isOdd(std::string_view sign) {
    return text::displayText(sign) != sign;
}

} // namespace

std::string jsonString(std::string_view rest) {
    std::string quoted = "\"";
    while (!rest.empty()) {
        const text::Decoded next = text::decodeUtf8(rest);
        const bool plain = next.codePoint >= U' ' && next.codePoint <= U'~';
        if (!next.valid)
            text::appendUtf8(quoted, 0xFFFD);
        else if (next.codePoint == U'"' || next.codePoint == U'\\')
            quoted.append("\\").push_back(static_cast<char>(next.codePoint));
        else if (!plain && isOdd(rest.substr(0, next.bytes)))
            appendEscaped(quoted, next.codePoint);
        else
            quoted.append(rest.substr(0, next.bytes));
        rest.remove_prefix(next.bytes);
    }
    return quoted + "\"";
}

} // namespace brovin::headless
