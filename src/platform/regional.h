#pragma once

#include "platform/clock.h"

#include <cstdint>
#include <string>

namespace brovin::platform {

/// The user's language and regional formats, as UTF-8.
class Regional {
public:
    virtual ~Regional() = default;

    [[nodiscard]] virtual std::string longDate(DateTime when) const = 0;
    [[nodiscard]] virtual std::string shortDate(DateTime when) const = 0;
    [[nodiscard]] virtual std::string longTime(DateTime when) const = 0;
    /// Hours and minutes.
    [[nodiscard]] virtual std::string shortTime(DateTime when) const = 0;
    /// The whole name of a month, 1 to 12.
    [[nodiscard]] virtual std::string monthName(unsigned month) const = 0;
    /// The short name of a weekday, 0 for Sunday to 6.
    [[nodiscard]] virtual std::string shortDayName(unsigned weekday) const = 0;
    /// The designator of the half of the day in which `hour`, 0 to 23, lies.
    [[nodiscard]] virtual std::string amPm(unsigned hour) const = 0;
    /// A whole number with its digits grouped.
    [[nodiscard]] virtual std::string grouped(std::int64_t number) const = 0;

    /// The language in which the user reads messages, by the number that language files give: 1031 for German
    /// as in Germany, 0 for one that has no number. The lowest ten bits tell the language without the
    /// country.
    [[nodiscard]] virtual long languageId() const = 0;
};

} // namespace brovin::platform
