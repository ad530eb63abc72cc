#pragma once

#include <algorithm>
#include <cstddef>

namespace brovin::character {

/// Where the character's random choices come from.
class Chance {
public:
    virtual ~Chance() = default;

    /// The next draw, uniform in [0, 1).
    [[nodiscard]] virtual double next() = 0;
};

/// A whole number from 0 up to, but not including, `count`, which is at least 1.
[[nodiscard]] inline std::size_t drawBelow(Chance& chance, std::size_t count) {
    return std::min(static_cast<std::size_t>(chance.next() * static_cast<double>(count)), count - 1);
}

} // namespace brovin::character
