#include "character/stage/text_breaks.h"

#include "text/utf8.h"

namespace brovin::character {
namespace {

std::size_t leading(std::string_view text, bool blanks) {
    std::string_view rest = text;
    while (!rest.empty()) {
        std::string_view behind = rest;
        if (isBlank(text::takeCodePoint(behind)) != blanks)
            break;
        rest = behind;
    }
    return text.size() - rest.size();
}

} // namespace

bool isBlank(char32_t letter) {
    const bool ascii = letter == U' ' || (letter >= U'\t' && letter <= U'\r');
    const bool noBreak = letter == 0x2007;
    const bool general = letter >= 0x2000 && letter <= 0x200B && !noBreak;
    return ascii || general || letter == 0x1680 || letter == 0x2028 || letter == 0x2029 || letter == 0x205F ||
           letter == 0x3000;
}

std::size_t leadingBlanks(std::string_view text) {
    return leading(text, true);
}

std::size_t leadingWord(std::string_view text) {
    return leading(text, false);
}

std::size_t leadingCharacter(std::string_view text) {
    std::string_view rest = text;
    static_cast<void>(text::takeCodePoint(rest));
    return text.size() - rest.size();
}

} // namespace brovin::character
