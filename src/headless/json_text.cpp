#include "headless/json_text.h"

#include "text/utf8.h"

namespace brovin::headless {
namespace {

std::string escaped(char32_t control) {
    constexpr std::string_view kDigits = "0123456789abcdef";
    std::string sequence = "\\u00";
    sequence += kDigits[(control >> 4U) & 0xFU];
    sequence += kDigits[control & 0xFU];
    return sequence;
}

} // namespace

std::string jsonString(std::string_view rest) {
    std::string quoted = "\"";
    while (!rest.empty()) {
        const text::Decoded next = text::decodeUtf8(rest);
        if (!next.valid)
            text::appendUtf8(quoted, 0xFFFD);
        else if (next.codePoint < 0x20 || next.codePoint == 0x7F)
            quoted += escaped(next.codePoint);
        else if (next.codePoint == U'"' || next.codePoint == U'\\')
            quoted.append("\\").push_back(static_cast<char>(next.codePoint));
        else
            text::appendUtf8(quoted, next.codePoint);
        rest.remove_prefix(next.bytes);
    }
    return quoted + "\"";
}

} // namespace brovin::headless
