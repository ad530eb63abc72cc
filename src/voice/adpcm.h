#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace brovin::voice {

/// Blocks of compressed samples: four bits each, after a few that stand in the block's head as they are. A
/// block that is cut off gives the samples that are there; an impossible one ends the sound.
struct AdpcmBlocks {
    std::span<const std::uint8_t> bytes;
    std::size_t blockBytes = 0; ///< more than the head, and at most 65,535
    int channels = 1;           ///< 1 or 2
};

/// Format 2 of RIFF WAVE, with its seven standard predictors.
[[nodiscard]] std::vector<std::int16_t> decodeMsAdpcm(const AdpcmBlocks& blocks);

/// Format 17 of RIFF WAVE, the form of the Interactive Multimedia Association.
[[nodiscard]] std::vector<std::int16_t> decodeImaAdpcm(const AdpcmBlocks& blocks);

} // namespace brovin::voice
