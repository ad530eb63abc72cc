#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace brovin::platform {

/// The one source of chance that every random choice draws on.
class Random {
public:
    virtual ~Random() = default;

    /// The next draw, uniform in [0, 1).
    [[nodiscard]] virtual double next() = 0;

    /// Starts the sequence that belongs to `value`.
    virtual void seed(std::uint64_t value) = 0;
};

/// A whole number from 0 up to, but not including, `count`, which is at least 1: every choice is drawn so.
[[nodiscard]] inline std::size_t drawBelow(Random& random, std::size_t count) {
    return std::min(static_cast<std::size_t>(random.next() * static_cast<double>(count)), count - 1);
}

} // namespace brovin::platform
