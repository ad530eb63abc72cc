#pragma once

#include "character/stage/chance.h"

#include <cstdint>
#include <deque>
#include <random>

namespace brovin::fakes {

/// Draws what the test has laid ready, then from a sequence that a seed determines, or 0 for ever without
/// one.
class FakeStageChance final : public character::Chance {
public:
    std::deque<double> draws;

    void seed(std::uint32_t seed) {
        random_.seed(seed);
        seeded_ = true;
    }

    [[nodiscard]] double next() override {
        if (draws.empty())
            return seeded_ ? static_cast<double>(random_()) / (1.0 + std::mt19937::max()) : 0.0;
        const double first = draws.front();
        draws.pop_front();
        return first;
    }

private:
    std::mt19937 random_;
    bool seeded_ = false;
};

} // namespace brovin::fakes
