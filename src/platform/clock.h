#pragma once

#include <chrono>
#include <cstdint>

namespace brovin::platform {

/// A moment on the user's wall clock, to the second; without a time zone, as the user reads it.
using DateTime = std::chrono::local_seconds;

class Clock {
public:
    virtual ~Clock() = default;

    /// The present moment in the user's time zone.
    [[nodiscard]] virtual DateTime now() const = 0;

    /// The same moment everywhere: seconds since the beginning of 1970, UTC.
    [[nodiscard]] virtual std::int64_t secondsUtc() const = 0;

    /// Time that goes by evenly whatever is done to the wall clock, counted from some moment in the past.
    [[nodiscard]] virtual std::chrono::milliseconds elapsed() const = 0;
};

} // namespace brovin::platform
