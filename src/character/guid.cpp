#include "character/guid.h"

#include <string_view>

namespace brovin::character {
namespace {

void appendHex(std::string& text, std::uint32_t number, unsigned digits) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    for (unsigned shift = digits * 4; shift > 0; shift -= 4)
        text.push_back(kDigits[(number >> (shift - 4)) & 0xFU]);
}

} // namespace

std::string guidText(const Guid& guid) {
    std::string text = "{";
    appendHex(text, guid.first, 8);
    text.push_back('-');
    appendHex(text, guid.second, 4);
    text.push_back('-');
    appendHex(text, guid.third, 4);
    text.push_back('-');
    for (std::size_t i = 0; i < guid.rest.size(); ++i) {
        if (i == 2)
            text.push_back('-');
        appendHex(text, guid.rest[i], 2);
    }
    text.push_back('}');
    return text;
}

} // namespace brovin::character
