#pragma once

#include "character/byte_reader.h"
#include "character/byte_writer.h"
#include "character/character_data.h"

#include <cstddef>
#include <vector>

namespace brovin::character {

/// How many of each there are for a frame to refer to. What it refers to beyond them is left out.
struct FrameTables {
    std::size_t images = 0;
    std::size_t sounds = 0;
    std::size_t frames = 0; ///< of the same animation
};

/// The record of one frame.
[[nodiscard]] Frame readFrame(ByteReader& in, const FrameTables& tables);

/// Mouth overlays carry half the size of their image, of which there are `images`.
void writeFrame(ByteWriter& out, const Frame& frame, const std::vector<EncodedImage>& images);

} // namespace brovin::character
