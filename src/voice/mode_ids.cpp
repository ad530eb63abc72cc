#include "voice/mode_ids.h"

#include "text/numbers.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <iterator>

namespace brovin::voice {
namespace {

using character::Gender;
using character::Guid;

/// The voices of one language: they differ in the identifier's first group alone.
struct Family {
    character::LanguageId language;
    std::uint32_t first; ///< the woman's; the man's is the next one
    std::uint16_t second;
    std::uint16_t third;
    std::array<std::uint8_t, 8> rest;
};

constexpr std::array<std::uint8_t, 8> kFirstMaker = {0xB1, 0x7B, 0x00, 0x20, 0xAF, 0xED, 0x14, 0x2E};

constexpr Family kFamilies[] = {
    {0x0809, 0x227A0E40, 0xA92A, 0x11D1, kFirstMaker}, // English (British)
    {0x0413, 0xA0DDCA40, 0xA92C, 0x11D1, kFirstMaker}, // Dutch
    {0x040C, 0x0879A4E0, 0xA92C, 0x11D1, kFirstMaker}, // French
    {0x0407, 0x3A1FB760, 0xA92B, 0x11D1, kFirstMaker}, // German
    {0x0410, 0x7EF71700, 0xA92D, 0x11D1, kFirstMaker}, // Italian
    {0x0411, 0xA778E060, 0xA936, 0x11D1, kFirstMaker}, // Japanese
    {0x0412, 0x12E0B720, 0xA936, 0x11D1, kFirstMaker}, // Korean
    {0x0416,
     0x8AA08CA0,
     0xA1AE,
     0x11D3,
     {0x9B, 0xC5, 0x00, 0xA0, 0xC9, 0x67, 0xA2, 0xD1}}, // Portuguese (Brazil)
    {0x0419, 0x06377F80, 0xD48E, 0x11D1, kFirstMaker},  // Russian
    {0x0C0A, 0x2CE326E0, 0xA935, 0x11D1, kFirstMaker},  // Spanish
};

/// English (US): eight men and two women, who are counted in the identifier's last byte.
constexpr Guid kAmericans{0xCA141FD0, 0xAC7F, 0x11D1, {0x97, 0xA3, 0x00, 0x60, 0x08, 0x27, 0x30, 0x00}};
constexpr character::LanguageId kEnglishUs = 0x0409;
constexpr unsigned kAmericanMen = 8;
constexpr unsigned kAmericanVoices = 10;

template <class Number>
bool takeHex(std::string_view& text, Number& number) {
    constexpr std::size_t kDigits = sizeof(Number) * 2;
    if (text.size() < kDigits)
        return false;
    constexpr int kHex = 16;
    const auto read = text::wholeNumber<Number>(text.substr(0, kDigits), kHex);
    number = read.value_or(number);
    text.remove_prefix(kDigits);
    return read.has_value();
}

bool takeDash(std::string_view& text) {
    if (!text.starts_with('-'))
        return false;
    text.remove_prefix(1);
    return true;
}

} // namespace

std::optional<Mode> knownMode(const Guid& guid) {
    Guid american = kAmericans;
    american.rest.back() = guid.rest.back();
    if (const unsigned number = guid.rest.back(); guid == american && number < kAmericanVoices)
        return number < kAmericanMen ? Mode{kEnglishUs, Gender::Male, number}
                                     : Mode{kEnglishUs, Gender::Female, number - kAmericanMen};
    for (const Family& f : kFamilies) {
        if (guid == Guid{f.first, f.second, f.third, f.rest})
            return Mode{f.language, Gender::Female, 0};
        if (guid == Guid{f.first + 1, f.second, f.third, f.rest})
            return Mode{f.language, Gender::Male, 0};
    }
    return std::nullopt;
}

std::optional<Guid> parseGuid(std::string_view text) {
    if (text.starts_with('{') && text.ends_with('}'))
        text = text.substr(1, text.size() - 2);
    Guid guid;
    bool ok = takeHex(text, guid.first) && takeDash(text) && takeHex(text, guid.second) && takeDash(text) &&
              takeHex(text, guid.third) && takeDash(text);
    for (std::size_t i = 0; ok && i < guid.rest.size(); ++i)
        ok = (i != 2 || takeDash(text)) && takeHex(text, guid.rest[i]);
    return ok && text.empty() ? std::optional(guid) : std::nullopt;
}

} // namespace brovin::voice
