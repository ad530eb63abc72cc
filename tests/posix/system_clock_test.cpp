#include "posix/system_clock.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <optional>
#include <string>

namespace brovin::posix {
namespace {

class TimeZone {
public:
    TimeZone() {
        if (const char* zone = std::getenv("TZ"))
            before_ = zone;
    }
    ~TimeZone() {
        if (before_)
            ::setenv("TZ", before_->c_str(), 1);
        else
            ::unsetenv("TZ");
        ::tzset();
    }
    TimeZone(const TimeZone&) = delete;
    TimeZone& operator=(const TimeZone&) = delete;

    void set(const char* zone) { ::setenv("TZ", zone, 1); }

private:
    std::optional<std::string> before_;
};

TEST(SystemClock, followsTheTimeZoneWhileTheProgramRuns) {
    TimeZone zone;
    const SystemClock clock;
    zone.set("UTC0");
    const platform::DateTime first = clock.now();
    zone.set("EAST-14");
    const platform::DateTime east = clock.now();
    zone.set("UTC0");
    const platform::DateTime last = clock.now();
    EXPECT_LE(first + std::chrono::hours(14), east);
    EXPECT_LE(east, last + std::chrono::hours(14));
}

} // namespace
} // namespace brovin::posix
