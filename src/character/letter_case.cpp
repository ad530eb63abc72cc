#include "character/letter_case.h"

#include "text/utf8.h"

#include <cstdint>

namespace brovin::character {
namespace {

/// Every `step`-th code point from `first` to `last` is a capital; its small letter is `toSmall` further on.
struct Capitals {
    char32_t first;
    char32_t last;
    char32_t step;
    std::int32_t toSmall;
};

constexpr Capitals kCapitals[] = {
    {0x0041, 0x005A, 1, 32},   // A to Z
    {0x00C0, 0x00D6, 1, 32},   // Latin-1 up to the multiplication sign
    {0x00D8, 0x00DE, 1, 32},   // and behind it
    {0x0100, 0x012E, 2, 1},    // Latin Extended-A, where capitals and small letters alternate
    {0x0132, 0x0136, 2, 1},    // the Turkish dotted I stands before these
    {0x0139, 0x0147, 2, 1},    //
    {0x014A, 0x0176, 2, 1},    //
    {0x0178, 0x0178, 1, -121}, // Y with diaeresis, whose small letter is in Latin-1
    {0x0179, 0x017D, 2, 1},    //
    {0x0386, 0x0386, 1, 38},   // Greek with tonos
    {0x0388, 0x038A, 1, 37},   //
    {0x038C, 0x038C, 1, 64},   //
    {0x038E, 0x038F, 1, 63},   //
    {0x0391, 0x03A1, 1, 32},   // Greek up to the place of the final sigma
    {0x03A3, 0x03AB, 1, 32},   //
    {0x0400, 0x040F, 1, 80},   // Cyrillic of the other Slavic languages
    {0x0410, 0x042F, 1, 32},   // Cyrillic
    {0x048A, 0x04BE, 2, 1},    // Cyrillic of other languages
};

constexpr char32_t moved(char32_t letter, std::int32_t by) {
    return static_cast<char32_t>(static_cast<std::int32_t>(letter) + by);
}

constexpr bool isAmong(const Capitals& row, char32_t letter) {
    return letter >= row.first && letter <= row.last && (letter - row.first) % row.step == 0;
}

char32_t toSmall(char32_t letter) {
    for (const Capitals& row : kCapitals)
        if (isAmong(row, letter))
            return moved(letter, row.toSmall);
    return letter;
}

char32_t toCapital(char32_t letter) {
    for (const Capitals& row : kCapitals)
        if (const char32_t capital = moved(letter, -row.toSmall); isAmong(row, capital))
            return capital;
    return letter;
}

std::string mapped(std::string_view text, char32_t (*map)(char32_t)) {
    std::string result;
    result.reserve(text.size());
    while (!text.empty())
        text::appendUtf8(result, map(text::takeCodePoint(text)));
    return result;
}

} // namespace

std::string foldedCase(std::string_view text) {
    return mapped(text, toSmall);
}

std::string capitals(std::string_view text) {
    return mapped(text, toCapital);
}

} // namespace brovin::character
