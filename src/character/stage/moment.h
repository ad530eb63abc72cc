#pragma once

#include <chrono>
#include <optional>

namespace brovin::character {

using Milliseconds = std::chrono::milliseconds;

/// A point on a clock that only runs forward. Nothing here reads a clock: who drives the character says what
/// time it is.
using Moment = std::chrono::time_point<std::chrono::steady_clock, Milliseconds>;

/// When to be called next; nullopt: not before something happens from outside.
using Wake = std::optional<Moment>;

[[nodiscard]] constexpr Wake sooner(Wake a, Wake b) {
    if (!a || (b && *b < *a))
        return b;
    return a;
}

/// Who comes later than this goes on from where he stands instead of making up for the time: the machine
/// slept.
inline constexpr Milliseconds kLongestCatchUp{10'000};

} // namespace brovin::character
