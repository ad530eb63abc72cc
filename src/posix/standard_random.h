#pragma once

#include "platform/random.h"

#include <random>

namespace brovin::posix {

/// A Mersenne twister. It starts with the same sequence in every run until it is seeded.
class StandardRandom final : public platform::Random {
public:
    [[nodiscard]] double next() override;
    void seed(std::uint64_t value) override { engine_.seed(value); }

private:
    std::mt19937_64 engine_;
};

} // namespace brovin::posix
