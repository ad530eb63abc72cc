#include "character/frame_cost.h"

#include "character/acs_limits.h"
#include "character/indexed_image.h"

#include <algorithm>

namespace brovin::character {
namespace {

std::size_t bytesOf(const EncodedImage& image) {
    return plainImageBytes(image.width, image.height).value_or(0);
}

} // namespace

std::size_t pixelBytes(const Frame& frame, const std::vector<EncodedImage>& images) {
    std::size_t together = 0;
    for (const FrameImage& placed : frame.images)
        together += bytesOf(images[placed.image]);
    std::size_t largestMouth = 0;
    for (const MouthOverlay& mouth : frame.mouths)
        largestMouth = std::max(largestMouth, bytesOf(images[mouth.image]));
    return together + largestMouth;
}

bool allCanBeDrawn(const std::vector<Animation>& animations, const std::vector<EncodedImage>& images) {
    const auto canBeDrawn = [&images](const Frame& frame) {
        return pixelBytes(frame, images) <= kMostFramePixelBytes;
    };
    return std::ranges::all_of(animations, [&](const Animation& animation) {
        return std::ranges::all_of(animation.frames, canBeDrawn);
    });
}

} // namespace brovin::character
