#pragma once

#include "character/stage/moment.h"

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace brovin::voice {

/// A sound as the device takes it.
struct Sound {
    int rate = 0;                      ///< frames a second, 1,000 to 192,000
    int channels = 1;                  ///< 1 or 2
    std::vector<std::int16_t> samples; ///< the channels by turns

    /// Rounded up.
    [[nodiscard]] character::Milliseconds length() const;
};

/// Reads a RIFF WAVE file: plain samples of 8 or 16 bits, or either of the two usual ADPCM forms. Of one that
/// is cut off, what is there; of a very long one, the first four million samples. nullopt: no sound that can
/// be played.
[[nodiscard]] std::optional<Sound> readWave(std::span<const std::uint8_t> file);

} // namespace brovin::voice
