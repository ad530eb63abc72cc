#pragma once

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

} // namespace brovin::platform
