#include "text/utf8.h"

#include <gtest/gtest.h>

namespace brovin::text {
namespace {

TEST(Utf8, tellsWellFormedFromNot) {
    constexpr struct {
        std::string_view bytes;
        bool valid;
        std::string_view why;
    } kCases[] = {
        {"", true, "nothing"},
        {"plain", true, "ASCII"},
        {"\xC3\xA4", true, "two bytes"},
        {"\xEF\xBF\xBD", true, "three bytes"},
        {"\xF0\x9F\x98\x80", true, "four bytes"},
        {"\xF4\x8F\xBF\xBF", true, "U+10FFFF"},
        {"\xF4\x90\x80\x80", false, "above U+10FFFF"},
        {"\xC0\xAF", false, "overlong"},
        {"\xE0\x80\xAF", false, "overlong"},
        {"\xED\xA0\x80", false, "surrogate"},
        {"\xC3", false, "cut off"},
        {"\xE2\x82", false, "cut off"},
        {"a\x80", false, "continuation alone"},
        {"\xFF", false, "never used"},
    };
    for (const auto& [bytes, valid, why] : kCases)
        EXPECT_EQ(valid, isUtf8(bytes)) << why;
}

TEST(Utf8, roundTripsEveryLength) {
    for (const char32_t c : {U'a', U'\u00e4', U'\u20ac', U'\U0001F600'}) {
        std::string bytes;
        appendUtf8(bytes, c);
        const Decoded back = decodeUtf8(bytes);
        EXPECT_TRUE(back.valid);
        EXPECT_EQ(c, back.codePoint);
        EXPECT_EQ(bytes.size(), back.bytes);
    }
}

TEST(DisplayText, letsNoNameBreakALineOrAnEncoding) {
    EXPECT_EQ("a\uFFFDb\uFFFD", displayText("a\nb\xFF"));
    EXPECT_EQ("\uFFFD\uFFFD", displayText("\xC3\x1B")) << "a cut sequence takes only its own byte";
    EXPECT_EQ("\uFFFD", displayText("\xC2\x85")) << "next line, U+0085";
    EXPECT_EQ("gr\u00fcn", displayText("gr\u00fcn"));
}

TEST(FromWindows1252, knowsTheBytesBetween80And9F) {
    EXPECT_EQ("gr\u00fcn \u20ac \u201Ex\u201C", fromWindows1252("gr\xFCn \x80 \x84x\x93"));
}

} // namespace
} // namespace brovin::text
