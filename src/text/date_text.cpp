#include "text/date_text.h"

#include "text/numbers.h"
#include "text/strings.h"

#include <vector>

namespace brovin::text {
namespace {

using std::chrono::local_days;
using std::chrono::local_seconds;

std::string padded(int number, std::size_t width) {
    std::string digits = std::to_string(number);
    return std::string(width > digits.size() ? width - digits.size() : 0, '0') + digits;
}

/// The whole numbers between the separators; empty when a piece is none.
std::vector<int> numbersOf(std::string_view text, char separator) {
    std::vector<int> numbers;
    for (const std::string_view piece : split(text, separator)) {
        const auto number = wholeNumber<int>(piece);
        if (!number)
            return {};
        numbers.push_back(*number);
    }
    return numbers;
}

std::optional<local_days> dayOf(std::string_view text) {
    const auto numbers = numbersOf(text, '-');
    if (numbers.size() != 3 || numbers[0] > 9999 || numbers[1] > 12 || numbers[2] > 31)
        return std::nullopt;
    const std::chrono::year_month_day day{std::chrono::year(numbers[0]),
                                          std::chrono::month(static_cast<unsigned>(numbers[1])),
                                          std::chrono::day(static_cast<unsigned>(numbers[2]))};
    if (!day.ok())
        return std::nullopt;
    return local_days(day);
}

std::optional<std::chrono::seconds> timeOf(std::string_view text) {
    const auto numbers = numbersOf(text, ':');
    if (numbers.size() < 2 || numbers.size() > 3)
        return std::nullopt;
    const int second = numbers.size() == 3 ? numbers[2] : 0;
    if (numbers[0] > 23 || numbers[1] > 59 || second > 59)
        return std::nullopt;
    return std::chrono::hours(numbers[0]) + std::chrono::minutes(numbers[1]) + std::chrono::seconds(second);
}

} // namespace

std::string isoText(local_days day) {
    const std::chrono::year_month_day parts(day);
    return padded(static_cast<int>(parts.year()), 4) + "-" +
           padded(static_cast<int>(static_cast<unsigned>(parts.month())), 2) + "-" +
           padded(static_cast<int>(static_cast<unsigned>(parts.day())), 2);
}

std::string isoText(local_seconds when) {
    const auto day = std::chrono::floor<std::chrono::days>(when);
    const std::chrono::hh_mm_ss<std::chrono::seconds> time(when - day);
    return isoText(day) + "T" + padded(static_cast<int>(time.hours().count()), 2) + ":" +
           padded(static_cast<int>(time.minutes().count()), 2) + ":" +
           padded(static_cast<int>(time.seconds().count()), 2);
}

std::optional<local_seconds> dateOf(std::string_view text) {
    using std::chrono::operator""y;
    text = trim(text);
    const std::size_t divider = text.find('T');
    if (const auto day = dayOf(text.substr(0, divider))) {
        if (divider == std::string_view::npos)
            return local_seconds(*day);
        const auto time = timeOf(text.substr(divider + 1));
        return time ? std::optional(*day + *time) : std::nullopt;
    }
    constexpr auto kDayOfTimes = local_days(1899y / std::chrono::December / 30);
    const auto time = timeOf(text);
    return time ? std::optional(kDayOfTimes + *time) : std::nullopt;
}

} // namespace brovin::text
