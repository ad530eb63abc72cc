#include "posix/icu_regional.h"

#include "text/date_text.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace brovin::posix {
namespace {

TEST(IcuRegional, followsTheUsersLocale) {
    const auto when = *text::dateOf("2026-11-05T15:04:09");
    // The short time has no seconds anywhere: it is compared with a minute, and Mongolian would have them.
    const struct {
        const char *locale, *longDate, *shortDate, *longTime, *shortTime, *number, *march, *saturday, *pm;
        long language;
    } kCases[] = {
        {"C.UTF-8", "Thursday, 5 November 2026", "5 Nov 2026", "15:04:09", "15:04", "1234567", "March", "Sat",
         "PM", 127},
        {"en_US.UTF-8", "Thursday, November 5, 2026", "11/5/26", "3:04:09 PM", "3:04 PM", "1,234,567",
         "March", "Sat", "PM", 1033},
        {"de_DE.UTF-8@euro", "Donnerstag, 5. November 2026", "05.11.26", "15:04:09", "15:04", "1.234.567",
         "M\u00e4rz", "Sa.", "PM", 1031},
        {"ru_RU",
         "\u0447\u0435\u0442\u0432\u0435\u0440\u0433, 5 \u043d\u043e\u044f\u0431\u0440\u044f 2026 \u0433.",
         "05.11.2026", "15:04:09", "15:04", "1\u00a0234\u00a0567", "\u043c\u0430\u0440\u0442\u0430",
         "\u0441\u0431", "PM", 1049},
        {"es_ES", "jueves, 5 de noviembre de 2026", "5/11/26", "15:04:09", "15:04", "1.234.567", "marzo",
         "s\u00e1b", "p.\u00a0m.", 3082},
    };
    for (const auto& expected : kCases) {
        SCOPED_TRACE(expected.locale);
        const IcuRegional regional({expected.locale, expected.locale, expected.locale});
        EXPECT_EQ(expected.longDate, regional.longDate(when));
        EXPECT_EQ(expected.shortDate, regional.shortDate(when));
        EXPECT_EQ(expected.longTime, regional.longTime(when)) << "no time zone";
        EXPECT_EQ(expected.shortTime, regional.shortTime(when)) << "no seconds: a tick comes once a minute";
        EXPECT_EQ(expected.number, regional.grouped(1234567));
        EXPECT_EQ(expected.march, regional.monthName(3));
        EXPECT_EQ(expected.saturday, regional.shortDayName(6));
        EXPECT_EQ(expected.pm, regional.amPm(12));
        EXPECT_EQ(expected.language, regional.languageId());
    }
}

TEST(IcuRegional, takesEachCategoryFromTheEnvironment) {
    ::unsetenv("LC_ALL");
    ::setenv("LC_TIME", "", 1);
    ::setenv("LC_NUMERIC", "fr_FR.UTF-8", 1);
    ::setenv("LANG", "de_DE.UTF-8", 1);
    EXPECT_EQ("de_DE.UTF-8", localeNames().dates) << "an empty variable counts as missing";
    EXPECT_EQ("fr_FR.UTF-8", localeNames().numbers);
    ::setenv("LC_ALL", "C", 1);
    EXPECT_EQ("C", localeNames().numbers);
    ::unsetenv("LC_NUMERIC");
    ::unsetenv("LANG");
}

} // namespace
} // namespace brovin::posix
