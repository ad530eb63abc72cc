#include "character/stage/mouth_shapes.h"

#include "text/utf8.h"

namespace brovin::character {
namespace {

struct Sounds {
    Mouth mouth;
    std::u32string_view letters;
};

constexpr Sounds kSounds[] = {
    {Mouth::Closed, U"mbfpvɱɓβɸʋ"},
    {Mouth::OpenWide1, U"gɡlkhrjiɪɨŋɹɾɻɽʁʀɫɭʎɬɮʟxɣχħɦʕʔqɢɠcɟ"},
    {Mouth::OpenWide2, U"ndtszʃʒθðçɕʑʂʐʈɖɗɲɳ"},
    {Mouth::OpenWide3, U"eɛəɜɝɚɘɐʌɤ"},
    {Mouth::OpenWide4, U"aæɑɶ"},
    {Mouth::OpenMedium, U"ɔɒœɞ"},
    {Mouth::OpenNarrow, U"uʊowʍɥyʏøɵʉɯ"},
};

/// Stress and other marks that may stand before the sound.
constexpr std::u32string_view kMarks = U"ˈˌ'ˑː͡";

Mouth mouthOf(char32_t letter) {
    for (const Sounds& row : kSounds)
        if (row.letters.find(letter) != std::u32string_view::npos)
            return row.mouth;
    return Mouth::OpenWide1;
}

} // namespace

std::optional<Mouth> mouthFor(std::string_view ipa) {
    while (!ipa.empty()) {
        const char32_t letter = text::takeCodePoint(ipa);
        if (kMarks.find(letter) != std::u32string_view::npos)
            continue;
        if (letter == U'(')
            return std::nullopt;
        return letter == U'_' ? Mouth::Closed : mouthOf(letter);
    }
    return Mouth::Closed;
}

} // namespace brovin::character
