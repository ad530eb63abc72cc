#include "character/letter_case.h"
#include "character/name_index.h"
#include "text/utf16.h"

#include <gtest/gtest.h>

#include <string_view>

namespace brovin::character {
namespace {

TEST(UnicodeText, goesToUtf16AndBack) {
    const struct {
        std::string_view text;
        std::u16string units;
        bool back; ///< whether the units give the text again
    } kCases[] = {
        {"", u"", true},
        {"a\u00E4\u20AC", u"a\u00E4\u20AC", true},
        {"\U0001F600\U0010FFFF", u"\xD83D\xDE00\xDBFF\xDFFF", true},
        {"a\xFFz", u"a\uFFFDz", false},                           // never used
        {"\xC0\xAF", u"\uFFFD\uFFFD", false},                     // overlong
        {"\xE2\x82", u"\uFFFD\uFFFD", false},                     // cut off
        {"\xED\xA0\x80", u"\uFFFD\uFFFD\uFFFD", false},           // half a pair
        {"\xF4\x90\x80\x80", u"\uFFFD\uFFFD\uFFFD\uFFFD", false}, // beyond the last
    };
    for (const auto& [text, units, back] : kCases) {
        EXPECT_EQ(units, text::toUtf16(text)) << text;
        std::vector<std::uint8_t> bytes;
        for (const char16_t unit : units) {
            bytes.push_back(static_cast<std::uint8_t>(unit & 0xFFU));
            bytes.push_back(static_cast<std::uint8_t>(unit >> 8U));
        }
        EXPECT_EQ(back, text == text::fromUtf16(bytes)) << text;
    }
}

TEST(LetterCase, foldsTheLettersOfEurope) {
    constexpr std::pair<std::string_view, std::string_view> kCases[] = {
        {"wave_1 z", "WAVE_1 Z"},
        {"\u00E0\u00F6\u00F8\u00FE", "\u00C0\u00D6\u00D8\u00DE"},
        {"\u00F7\u00DF", "\u00F7\u00DF"}, // the division sign and sharp s have no capital
        {"\u0105\u0142\u017C\u00FF", "\u0104\u0141\u017B\u0178"},
        {"\u03B1\u03C9\u03AC\u03CC", "\u0391\u03A9\u0386\u038C"},
        {"\u0436\u0451\u0491", "\u0416\u0401\u0490"},
        {"\u6F22\U0001F600", "\u6F22\U0001F600"},
    };
    for (const auto& [small, capital] : kCases) {
        EXPECT_EQ(small, foldedCase(capital));
        EXPECT_EQ(small, foldedCase(small));
        EXPECT_EQ(capital, capitals(small));
        EXPECT_EQ(capital, capitals(capital));
    }
}

TEST(NameIndex, findsNamesInAnyCase) {
    NameIndex names;
    EXPECT_TRUE(names.add("Wave", 4));
    EXPECT_FALSE(names.add("WAVE", 5)) << "the first stays";
    EXPECT_FALSE(names.add("", 6));
    EXPECT_EQ(4U, names.find("wAVE"));
    EXPECT_EQ(std::nullopt, names.find("Wav"));
    EXPECT_EQ(std::nullopt, names.find(""));
}

} // namespace
} // namespace brovin::character
