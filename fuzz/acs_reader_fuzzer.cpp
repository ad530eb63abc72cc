#include "character/acs_reader.h"
#include "character/acs_writer.h"
#include "character/bitmap.h"
#include "character/image_store.h"
#include "character/soundness.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <vector>

namespace {

using namespace brovin::character;

void require(bool holds) {
    if (!holds)
        std::abort();
}

void checkRoundTrip(const CharacterData& character) {
    require(unsoundness(character).empty());
    const auto file = writeCharacter(character);
    if (!file) // parts that lie upon one another are written one by one
        return;
    const auto back = readCharacter(SharedBytes(*file));
    require(back && *back == character);
}

/// The first frames of each animation, with each of their mouths.
void paintSome(const CharacterData& character) {
    constexpr std::size_t kFrames = 3;
    constexpr std::size_t kPictures = 20;
    ImageStore images(character.images, std::size_t{1} << 20U);
    FramePainter painter(character, images);
    Bitmap canvas;
    std::size_t pictures = 0;
    for (const Animation& animation : character.animations)
        for (std::size_t i = 0; i < std::min(animation.frames.size(), kFrames); ++i) {
            const Frame& frame = animation.frames[i];
            painter.paint(frame, nullptr, canvas);
            for (const MouthOverlay& mouth : frame.mouths)
                if (++pictures < kPictures)
                    painter.paint(frame, &mouth, canvas);
            if (++pictures >= kPictures)
                return;
        }
}

} // namespace

/// Any bytes at all give a character that is sound and survives being written, or an error that says
/// something.
// NOLINTNEXTLINE(readability-identifier-naming): the name that libFuzzer calls
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const SharedBytes file(std::vector<std::uint8_t>(data, data + size));
    const auto listing = readListing(file.view(), 0x0409);
    const auto character = readCharacter(file);
    if (!character) {
        require(message(character.failure()).size() > 20 && character.failure().position <= size);
        return 0;
    }
    require(static_cast<bool>(listing));
    checkRoundTrip(*character);
    paintSome(*character);
    return 0;
}
