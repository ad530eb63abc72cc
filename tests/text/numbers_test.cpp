#include "text/numbers.h"

#include <gtest/gtest.h>

namespace brovin::text {
namespace {

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

} // namespace
} // namespace brovin::text
