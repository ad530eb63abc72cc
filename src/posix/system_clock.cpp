#include "posix/system_clock.h"

#include <ctime>

namespace brovin::posix {

platform::DateTime SystemClock::now() const {
    const std::time_t moment = std::time(nullptr);
    std::tm parts{};
    // localtime_r() alone keeps to the time zone that the program started in.
    ::tzset();
    ::localtime_r(&moment, &parts);
    const std::chrono::year_month_day day(std::chrono::year(parts.tm_year + 1900),
                                          std::chrono::month(static_cast<unsigned>(parts.tm_mon) + 1),
                                          std::chrono::day(static_cast<unsigned>(parts.tm_mday)));
    return std::chrono::local_days(day) + std::chrono::hours(parts.tm_hour) +
           std::chrono::minutes(parts.tm_min) + std::chrono::seconds(parts.tm_sec);
}

std::int64_t SystemClock::secondsUtc() const {
    return std::time(nullptr);
}

std::chrono::milliseconds SystemClock::elapsed() const {
    return std::chrono::floor<std::chrono::milliseconds>(std::chrono::steady_clock::now().time_since_epoch());
}

} // namespace brovin::posix
