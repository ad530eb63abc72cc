#include "posix/system_clock.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace brovin::posix {
namespace {

TEST(SystemClock, followsTheTimeZoneWhileTheProgramRuns) {
    const SystemClock clock;
    const auto nowIn = [&clock](const char* zone) {
        ::setenv("TZ", zone, 1);
        return clock.now();
    };
    const platform::DateTime first = nowIn("UTC0");
    const platform::DateTime east = nowIn("EAST-14");
    const platform::DateTime last = nowIn("UTC0");
    EXPECT_LE(first + std::chrono::hours(14), east);
    EXPECT_LE(east, last + std::chrono::hours(14));
}

} // namespace
} // namespace brovin::posix
