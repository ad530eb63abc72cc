#include "voice/language_ids.h"

namespace brovin::voice {
namespace {

struct Language {
    long id;
    const char* tag;
};

/// Identifiers that say more than their primary language.
constexpr Language kLanguages[] = {
    {0x0409, "en-us"},  {0x0809, "en-gb"},  {0x1009, "en-us"},  {0x2409, "en-029"}, {0x080A, "es-mx"},
    {0x2C0A, "es-419"}, {0x240A, "es-419"}, {0x340A, "es-419"}, {0x280A, "es-419"}, {0x080C, "fr-be"},
    {0x100C, "fr-ch"},  {0x0416, "pt-br"},  {0x0816, "pt-pt"},  {0x0C04, "yue"},    {0x1404, "yue"},
    {0x041A, "hr"},     {0x101A, "hr"},     {0x141A, "bs"},     {0x201A, "bs"},     {0x081A, "sr"},
    {0x0C1A, "sr"},     {0x181A, "sr"},     {0x1C1A, "sr"},     {0x241A, "sr"},     {0x281A, "sr"},
    {0x083C, "ga"},     {0x7814, "no"},
};

/// The low ten bits of an identifier.
constexpr Language kPrimaryLanguages[] = {
    {0x01, "ar"}, {0x02, "bg"}, {0x03, "ca"},  {0x04, "zh"}, {0x05, "cs"}, {0x06, "da"}, {0x07, "de"},
    {0x08, "el"}, {0x09, "en"}, {0x0A, "es"},  {0x0B, "fi"}, {0x0C, "fr"}, {0x0D, "he"}, {0x0E, "hu"},
    {0x0F, "is"}, {0x10, "it"}, {0x11, "ja"},  {0x12, "ko"}, {0x13, "nl"}, {0x14, "no"}, {0x15, "pl"},
    {0x16, "pt"}, {0x18, "ro"}, {0x19, "ru"},  {0x1A, "hr"}, {0x1B, "sk"}, {0x1C, "sq"}, {0x1D, "sv"},
    {0x1E, "th"}, {0x1F, "tr"}, {0x20, "ur"},  {0x21, "id"}, {0x22, "uk"}, {0x23, "be"}, {0x24, "sl"},
    {0x25, "et"}, {0x26, "lv"}, {0x27, "lt"},  {0x29, "fa"}, {0x2A, "vi"}, {0x2B, "hy"}, {0x2C, "az"},
    {0x2D, "eu"}, {0x2F, "mk"}, {0x32, "tn"},  {0x36, "af"}, {0x37, "ka"}, {0x39, "hi"}, {0x3A, "mt"},
    {0x3C, "gd"}, {0x3E, "ms"}, {0x3F, "kk"},  {0x40, "ky"}, {0x41, "sw"}, {0x42, "tk"}, {0x43, "uz"},
    {0x44, "tt"}, {0x45, "bn"}, {0x46, "pa"},  {0x47, "gu"}, {0x48, "or"}, {0x49, "ta"}, {0x4A, "te"},
    {0x4B, "kn"}, {0x4C, "ml"}, {0x4D, "as"},  {0x4E, "mr"}, {0x52, "cy"}, {0x55, "my"}, {0x57, "kok"},
    {0x59, "sd"}, {0x5B, "si"}, {0x5E, "am"},  {0x61, "ne"}, {0x6D, "ba"}, {0x6E, "lb"}, {0x6F, "kl"},
    {0x72, "om"}, {0x74, "gn"}, {0x75, "haw"}, {0x80, "ug"}, {0x81, "mi"}, {0x92, "ku"},
};

constexpr long kPrimaryBits = 0x3FF;

} // namespace

std::optional<std::string> languageTag(long id) {
    if (id <= 0 || id > 0xFFFF)
        return std::nullopt;
    for (const Language& language : kLanguages)
        if (language.id == id)
            return language.tag;
    for (const Language& language : kPrimaryLanguages)
        if (language.id == (id & kPrimaryBits))
            return language.tag;
    return std::nullopt;
}

} // namespace brovin::voice
