#include "text/language_ids.h"

#include "text/strings.h"

#include <algorithm>
#include <span>

namespace brovin::text {
namespace {

struct Language {
    std::uint16_t id;
    const char* tag;
};

/// Identifiers that say more than their primary language.
constexpr Language kByCountry[] = {
    {0x0409, "en-us"},  {0x0809, "en-gb"},  {0x1009, "en-us"},  {0x2409, "en-029"}, {0x080A, "es-mx"},
    {0x2C0A, "es-419"}, {0x240A, "es-419"}, {0x340A, "es-419"}, {0x280A, "es-419"}, {0x080C, "fr-be"},
    {0x100C, "fr-ch"},  {0x0416, "pt-br"},  {0x0816, "pt-pt"},  {0x0404, "zh-tw"},  {0x0C04, "yue"},
    {0x1404, "yue"},    {0x041A, "hr"},     {0x101A, "hr"},     {0x141A, "bs"},     {0x201A, "bs"},
    {0x081A, "sr"},     {0x0C1A, "sr"},     {0x181A, "sr"},     {0x1C1A, "sr"},     {0x241A, "sr"},
    {0x281A, "sr"},     {0x083C, "ga"},     {0x7814, "no"},
};

/// The low ten bits of an identifier are the language; the others here stand for the country that one thinks
/// of first.
constexpr Language kLanguages[] = {
    {0x0401, "ar"}, {0x0402, "bg"}, {0x0403, "ca"},  {0x0804, "zh"}, {0x0405, "cs"},  {0x0406, "da"},
    {0x0407, "de"}, {0x0408, "el"}, {0x0409, "en"},  {0x0C0A, "es"}, {0x040B, "fi"},  {0x040C, "fr"},
    {0x040D, "he"}, {0x040E, "hu"}, {0x040F, "is"},  {0x0410, "it"}, {0x0411, "ja"},  {0x0412, "ko"},
    {0x0413, "nl"}, {0x0414, "nb"}, {0x0415, "pl"},  {0x0816, "pt"}, {0x0418, "ro"},  {0x0419, "ru"},
    {0x041A, "hr"}, {0x041B, "sk"}, {0x041C, "sq"},  {0x041D, "sv"}, {0x041E, "th"},  {0x041F, "tr"},
    {0x0420, "ur"}, {0x0421, "id"}, {0x0422, "uk"},  {0x0423, "be"}, {0x0424, "sl"},  {0x0425, "et"},
    {0x0426, "lv"}, {0x0427, "lt"}, {0x0429, "fa"},  {0x042A, "vi"}, {0x042B, "hy"},  {0x042C, "az"},
    {0x042D, "eu"}, {0x042F, "mk"}, {0x0432, "tn"},  {0x0436, "af"}, {0x0437, "ka"},  {0x0439, "hi"},
    {0x043A, "mt"}, {0x043C, "gd"}, {0x043E, "ms"},  {0x043F, "kk"}, {0x0440, "ky"},  {0x0441, "sw"},
    {0x0442, "tk"}, {0x0443, "uz"}, {0x0444, "tt"},  {0x0445, "bn"}, {0x0446, "pa"},  {0x0447, "gu"},
    {0x0448, "or"}, {0x0449, "ta"}, {0x044A, "te"},  {0x044B, "kn"}, {0x044C, "ml"},  {0x044D, "as"},
    {0x044E, "mr"}, {0x0452, "cy"}, {0x0455, "my"},  {0x0456, "gl"}, {0x0457, "kok"}, {0x0459, "sd"},
    {0x045B, "si"}, {0x045E, "am"}, {0x0461, "ne"},  {0x046D, "ba"}, {0x046E, "lb"},  {0x046F, "kl"},
    {0x0472, "om"}, {0x0474, "gn"}, {0x0475, "haw"}, {0x0480, "ug"}, {0x0481, "mi"},  {0x0492, "ku"},
};

constexpr long kPrimaryBits = 0x3FF;

const Language* rowOf(std::span<const Language> rows, auto fits) {
    const auto row = std::ranges::find_if(rows, fits);
    return row == rows.end() ? nullptr : &*row;
}

} // namespace

std::optional<std::string> languageTag(long id) {
    if (id <= 0 || id > 0xFFFF)
        return std::nullopt;
    const Language* row = rowOf(kByCountry, [id](const Language& l) { return l.id == id; });
    if (row == nullptr)
        row = rowOf(kLanguages,
                    [id](const Language& l) { return (l.id & kPrimaryBits) == (id & kPrimaryBits); });
    return row == nullptr ? std::nullopt : std::optional<std::string>(row->tag);
}

std::optional<std::string> exactLanguageTag(long id) {
    const auto fits = [id](const Language& l) { return l.id == id && languageId(l.tag) == id; };
    const Language* row = rowOf(kLanguages, fits);
    if (row == nullptr)
        row = rowOf(kByCountry, fits);
    return row == nullptr ? std::nullopt : std::optional<std::string>(row->tag);
}

std::optional<std::uint16_t> languageId(std::string_view tag) {
    const auto fits = [lower = asciiLower(tag)](const Language& l) { return l.tag == lower; };
    const Language* row = rowOf(kLanguages, fits);
    if (row == nullptr)
        row = rowOf(kByCountry, fits);
    return row == nullptr ? std::nullopt : std::optional(row->id);
}

} // namespace brovin::text
