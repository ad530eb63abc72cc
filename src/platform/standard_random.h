#pragma once

#include "platform/random.h"

#include <random>

namespace brovin::platform {

/// A Mersenne twister. It starts with the same sequence in every run until it is seeded.
class StandardRandom final : public Random {
public:
    /// As many bits as a double holds exactly. The library's own distribution may round up to 1.
    [[nodiscard]] double next() override {
        constexpr int kBits = 53;
        return static_cast<double>(engine_() >> (64 - kBits)) * 0x1.0p-53;
    }
    void seed(std::uint64_t value) override { engine_.seed(value); }

private:
    std::mt19937_64 engine_;
};

} // namespace brovin::platform
