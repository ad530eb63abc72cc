#pragma once

#include "character/character_data.h"

#include <cstddef>
#include <vector>

namespace brovin::character {

/// Bytes of pixels that have to be made and drawn for a frame at most, its largest mouth included. An image
/// counts as often as the frame shows it.
[[nodiscard]] std::size_t pixelBytes(const Frame& frame, const std::vector<EncodedImage>& images);

/// Whether every frame of every animation can be drawn in a moment (`kMostFramePixelBytes`).
[[nodiscard]] bool allCanBeDrawn(const std::vector<Animation>& animations,
                                 const std::vector<EncodedImage>& images);

} // namespace brovin::character
