#pragma once

#include "character/character_data.h"
#include "character/image_store.h"

#include <array>
#include <cstdint>
#include <vector>

namespace brovin::character {

/// What is shown: the top row first, a pixel 0xAARRGGBB, which is B, G, R, A in memory on little-endian
/// machines. A pixel is either opaque (alpha 255) or 0.
struct Bitmap {
    std::uint16_t width = 0;
    std::uint16_t height = 0;
    std::vector<std::uint32_t> pixels;

    bool operator==(const Bitmap&) const = default;
};

/// Makes one picture of the images that a frame consists of.
class FramePainter {
public:
    /// Takes palette, transparent colour and frame size from the character. `images`, made of the character's
    /// images, must outlive the painter.
    FramePainter(const CharacterData& character, ImageStore& images);

    /// Replaces what is in `canvas`, whose memory is used again, by the frame. Images that cannot be decoded
    /// are left out, and what lies beyond the frame's edges is cut off.
    ///
    /// `overlay` may be null. One that replaces the top image is drawn in its stead; any other is drawn over
    /// the frame, but only where the frame itself is not transparent.
    void paint(const Frame& frame, const MouthOverlay* overlay, Bitmap& canvas);

private:
    enum class Where : std::uint8_t { Everywhere, OverOpaque };

    void draw(const FrameImage& placed, Where where, Bitmap& canvas);

    ImageStore& images_;
    std::uint16_t width_;
    std::uint16_t height_;
    std::array<std::uint32_t, 256> colours_{}; ///< by palette index; 0: transparent
};

} // namespace brovin::character
