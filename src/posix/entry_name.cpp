#include "posix/entry_name.h"

#include "posix/unicode_case.h"
#include "text/utf8.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace brovin::posix {
namespace {

constexpr char32_t kServersCarriageReturn = 0xF00D;

enum Trait : std::uint8_t { Plain = 0, ChangesInAscii = 1, BeyondAscii = 2 };

constexpr char shownAscii(char c) {
    if (c == '\r')
        return '?';
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

constexpr std::array<std::uint8_t, 256> kTraits = [] {
    std::array<std::uint8_t, 256> traits{};
    for (unsigned byte = 0; byte < traits.size(); ++byte) {
        const char c = static_cast<char>(byte);
        traits[byte] = byte >= 0x80 ? BeyondAscii : (shownAscii(c) != c ? ChangesInAscii : Plain);
    }
    return traits;
}();

char32_t shownCharacter(char32_t c) {
    return c == U'\r' || c == kServersCarriageReturn ? U'?' : lowerCase(c);
}

void appendShown(std::string_view trueName, std::string& memory) {
    while (!trueName.empty()) {
        const text::Decoded next = text::decodeUtf8(trueName);
        if (next.valid)
            text::appendUtf8(memory, shownCharacter(next.codePoint));
        else
            memory.push_back(trueName.front());
        trueName.remove_prefix(next.bytes);
    }
}

} // namespace

std::string_view shownName(std::string_view trueName, std::string& memory) {
    unsigned traits = Plain;
    for (const char c : trueName)
        traits |= kTraits[static_cast<std::uint8_t>(c)];
    if (traits == Plain)
        return trueName;
    const std::size_t begin = memory.size();
    if ((traits & BeyondAscii) != 0) {
        appendShown(trueName, memory);
    } else {
        memory.append(trueName);
        const auto from = memory.begin() + static_cast<std::ptrdiff_t>(begin);
        std::transform(from, memory.end(), from, shownAscii);
    }
    return std::string_view(memory).substr(begin);
}

} // namespace brovin::posix
