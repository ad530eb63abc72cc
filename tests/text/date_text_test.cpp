#include "text/date_text.h"

#include <gtest/gtest.h>

namespace brovin::text {
namespace {

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
