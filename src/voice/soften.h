#pragma once

#include <cstdint>
#include <span>

namespace brovin::voice {

/// Makes samples as loud as `percent` of the whole sounds to an ear, which hears by ratios: half of it is a
/// quarter of the amplitude.
inline void soften(std::span<std::int16_t> samples, int percent) {
    constexpr int kWhole = 100;
    if (percent >= kWhole)
        return;
    for (std::int16_t& sample : samples)
        sample = static_cast<std::int16_t>(sample * percent * percent / (kWhole * kWhole));
}

} // namespace brovin::voice
