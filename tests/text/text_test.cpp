#include "text/date_text.h"
#include "text/numbers.h"
#include "text/strings.h"
#include "text/utf8.h"

#include <gtest/gtest.h>

namespace brovin::text {
namespace {

using Pieces = std::vector<std::string_view>;

TEST(Split, keepsEmptyPiecesButNotOfAnEmptyText) {
    EXPECT_EQ(Pieces{}, split("", '|'));
    EXPECT_EQ((Pieces{"a"}), split("a", '|'));
    EXPECT_EQ((Pieces{"a", "", "b", ""}), split("a||b|", '|'));
    EXPECT_EQ((Pieces{"", ""}), split("|", '|'));
}

TEST(Trim, takesBlanksOnly) {
    EXPECT_EQ("a b", trim("  a b "));
    EXPECT_EQ("\ta", trim("\ta"));
    EXPECT_EQ("", trim("   "));
}

TEST(Replace, goesFromTheLeftAndNeverBack) {
    EXPECT_EQ("xbxb", replaceAll("abab", "a", "x"));
    EXPECT_EQ("aaaa", replaceAll("aa", "a", "aa")) << "what was put in is not looked at again";
    EXPECT_EQ("aa", replaceAll("aa", "", "x"));
    EXPECT_EQ("xa", replaceFirst("aa", "a", "x"));
    EXPECT_EQ("b", replaceFirst("b", "a", "x"));
}

TEST(LeadingNumber, readsAsFarAsTheNumberGoes) {
    constexpr struct {
        std::string_view text;
        double number;
        std::string_view why;
    } kCases[] = {
        {"12", 12, "plain"},
        {"007", 7, "leading zeros"},
        {" 1 2 ", 12, "blanks are passed over"},
        {"5 hours", 5, "the rest is left"},
        {"-3", -3, "sign"},
        {"+3", 3, "sign"},
        {"1.5.2", 1.5, "one point"},
        {".5", 0.5, "no digit before the point"},
        {"2e3x", 2000, "exponent"},
        {"2e", 2, "exponent without digits"},
        {"", 0, "nothing"},
        {"five", 0, "no digit"},
        {"infinity", 0, "a word"},
        {"nan", 0, "a word"},
        {"-", 0, "a sign alone"},
        {"1e999", 0, "out of range"},
    };
    for (const auto& [text, number, why] : kCases)
        EXPECT_EQ(number, leadingNumber(text)) << text << ": " << why;
}

TEST(LeadingInt, doesNotFitBeyondTheVariable) {
    EXPECT_EQ(32767, leadingInt16("32767"));
    EXPECT_EQ(std::nullopt, leadingInt16("32768"));
    EXPECT_EQ(-32768, leadingInt16("-32768"));
    EXPECT_EQ(2, leadingInt16("2.5")) << "halves go to the even neighbour";
    EXPECT_EQ(2147483647, leadingInt32("2147483647"));
    EXPECT_EQ(std::nullopt, leadingInt32("2147483648"));
}

TEST(NumberText, dropsWhatSaysNothing) {
    EXPECT_EQ("5", numberText(5.0));
    EXPECT_EQ("0.25", numberText(0.25));
    EXPECT_EQ("-1", numberText(-1));
    EXPECT_EQ("100000", numberText(1e5));
    EXPECT_EQ("0.1", numberText(0.1));
}

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
    EXPECT_EQ("gr\u00fcn \u0645\u202F\u2764\uFE0F", displayText("gr\u00fcn \u0645\u202F\u2764\uFE0F"));
    for (const char* unseen : {"\u00AD", "\u061C", "\u200B", "\u200D", "\u200F", "\u2028", "\u202A", "\u202E",
                               "\u2066", "\u2069", "\uFEFF", "\u3164", "\U000E0041"})
        EXPECT_EQ("a\uFFFDfdp.exe", displayText(std::string("a") + unseen + "fdp.exe")) << unseen;
}

TEST(CutInTheMiddle, countsCharactersAndKeepsBothEnds) {
    EXPECT_EQ("/a/b", cutInTheMiddle("/a/b", 4));
    EXPECT_EQ("ä…öü", cutInTheMiddle("äxxxöü", 4));
    EXPECT_EQ("…", cutInTheMiddle("äxx", 1));
}

TEST(FromWindows1252, knowsTheBytesBetween80And9F) {
    EXPECT_EQ("gr\u00fcn \u20ac \u201Ex\u201C", fromWindows1252("gr\xFCn \x80 \x84x\x93"));
}

TEST(DateOf, readsTheProgramsOwnFormsAndNoOthers) {
    constexpr std::string_view kCases[][3] = {
        // the moment as isoText writes it; empty: none
        {"2026-11-21T23:00:59", "2026-11-21T23:00:59", "a moment"},
        {" 2026-11-21 ", "2026-11-21T00:00:00", "a day, with blanks around it"},
        {"9:15", "1899-12-30T09:15:00", "a time of day"},
        {"23:00:30", "1899-12-30T23:00:30", "a time of day with seconds"},
        {"2024-02-29", "2024-02-29T00:00:00", "a leap day"},
        {"1066-10-14T9:05", "1066-10-14T09:05:00", "long ago"},
        {"2026-02-29", "", "no leap day"},
        {"2026-13-01", "", "no such month"},
        {"2026-01-32", "", "no such day"},
        {"2026-00-10", "", "months count from one"},
        {"12026-11-21", "", "five digits of a year"},
        {"2026-11", "", "no day"},
        {"2026-11-21T", "", "an empty time"},
        {"2026-11-21T24:00", "", "the last hour is the 23rd"},
        {"2026-11-21T10:60", "", "no such minute"},
        {"10:05:60", "", "no such second"},
        {"T10:05", "", "an empty day"},
        {"-1:30", "", "below nought"},
        {"99999999999:00", "", "out of range"},
        {"21/11/2026", "", "another form"},
        {"", "", "nothing"},
    };
    for (const auto& [text, moment, why] : kCases) {
        const auto date = dateOf(text);
        EXPECT_EQ(moment, date ? isoText(*date) : "") << text << ": " << why;
    }
}

TEST(DateOf, looksAtAllDigitsOfAMonthAndADay) {
    EXPECT_EQ(std::nullopt, dateOf("2026-257-01")) << "eight bits of it would be January";
    EXPECT_EQ(std::nullopt, dateOf("2026-01-257"));
}

TEST(IsoText, canBeReadAgain) {
    using std::chrono::local_days;
    using std::chrono::operator""y;
    const auto day = local_days(987y / std::chrono::March / 4);
    EXPECT_EQ("0987-03-04", isoText(day));
    EXPECT_EQ(std::optional(std::chrono::local_seconds(day)), dateOf(isoText(day)));
    const auto before1970 =
        std::chrono::local_seconds(local_days(1969y / std::chrono::December / 31)) + std::chrono::seconds(1);
    EXPECT_EQ("1969-12-31T00:00:01", isoText(before1970));
    EXPECT_EQ(std::optional(before1970), dateOf(isoText(before1970)));
}

} // namespace
} // namespace brovin::text
