#pragma once

#include "platform/letters.h"
#include "platform/regional.h"
#include "text/date_text.h"
#include "text/strings.h"

#include <array>
#include <string>

namespace brovin::fakes {

/// A country of its own: day first, commas between thousands, a clock with halves.
class FakeRegional final : public platform::Regional {
public:
    long language = 1033; ///< English

    [[nodiscard]] long languageId() const override { return language; }
    [[nodiscard]] std::string longDate(platform::DateTime when) const override {
        const std::chrono::year_month_day day(std::chrono::floor<std::chrono::days>(when));
        return std::to_string(static_cast<unsigned>(day.day())) + " " +
               monthName(static_cast<unsigned>(day.month())) + " " +
               std::to_string(static_cast<int>(day.year()));
    }
    [[nodiscard]] std::string shortDate(platform::DateTime when) const override {
        const std::chrono::year_month_day day(std::chrono::floor<std::chrono::days>(when));
        return std::to_string(static_cast<unsigned>(day.day())) + "/" +
               std::to_string(static_cast<unsigned>(day.month())) + "/" +
               std::to_string(static_cast<int>(day.year()));
    }
    [[nodiscard]] std::string longTime(platform::DateTime when) const override {
        return text::isoText(when).substr(11);
    }
    [[nodiscard]] std::string shortTime(platform::DateTime when) const override {
        return text::isoText(when).substr(11, 5);
    }
    [[nodiscard]] std::string monthName(unsigned month) const override {
        static constexpr std::array kNames = {"January",   "February", "March",    "April",
                                              "May",       "June",     "July",     "August",
                                              "September", "October",  "November", "December"};
        return kNames.at(month - 1);
    }
    [[nodiscard]] std::string shortDayName(unsigned weekday) const override {
        static constexpr std::array kNames = {"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"};
        return kNames.at(weekday);
    }
    [[nodiscard]] std::string amPm(unsigned hour) const override { return hour < 12 ? "am" : "pm"; }
    [[nodiscard]] std::string grouped(std::int64_t number) const override {
        std::string digits = std::to_string(number);
        for (auto at = static_cast<int>(digits.size()) - 3; at > (number < 0 ? 1 : 0); at -= 3)
            digits.insert(static_cast<std::size_t>(at), ",");
        return digits;
    }
};

/// The letters of English.
class FakeLetters final : public platform::Letters {
public:
    [[nodiscard]] std::string lowerCase(std::string_view text) const override {
        return text::asciiLower(text);
    }
    [[nodiscard]] std::string properCase(std::string_view text) const override {
        std::string proper = text::asciiLower(text);
        bool begins = true;
        for (char& c : proper) {
            if (begins && c >= 'a' && c <= 'z')
                c = static_cast<char>(c - 'a' + 'A');
            begins = c == ' ';
        }
        return proper;
    }
};

} // namespace brovin::fakes
