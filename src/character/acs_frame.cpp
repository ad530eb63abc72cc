#include "character/acs_frame.h"

#include "character/acs_basics.h"
#include "character/acs_format.h"
#include "character/acs_limits.h"

#include <cstdint>
#include <optional>

namespace brovin::character {
namespace {

std::vector<FrameImage> readImages(ByteReader& in, const FrameTables& tables) {
    const ListBounds bounds{kFrameImageBytes, kMostFrameImages, "has a frame of too many images"};
    return readList(in, in.u16(), bounds, [&] {
        const FrameImage image{in.u32(), in.i16(), in.i16()};
        return image.image < tables.images ? std::optional(image) : std::nullopt;
    });
}

std::vector<Branch> readBranches(ByteReader& in, const FrameTables& tables) {
    return readList(in, in.u8(), {.smallest = kBranchBytes}, [&] {
        const Branch branch{in.u16(), in.u16()};
        return branch.frame < tables.frames ? std::optional(branch) : std::nullopt;
    });
}

/// nullopt: of no known mouth, or without an image.
std::optional<MouthOverlay> readMouth(ByteReader& in, const FrameTables& tables) {
    MouthOverlay overlay;
    const std::uint8_t mouth = in.u8();
    overlay.replacesTopImage = in.u8() != 0;
    overlay.image = in.u16();
    in.skip(1); // of unknown meaning, seen as 0 only
    const bool hasRegion = in.u8() != 0;
    overlay.x = in.i16();
    overlay.y = in.i16();
    in.skip(4); // half the size; the image knows the whole
    if (hasRegion)
        in.skip(in.u32()); // pixels of the transparent colour say the same
    if (mouth >= kMouthCount || overlay.image >= tables.images)
        return std::nullopt;
    overlay.mouth = static_cast<Mouth>(mouth);
    return overlay;
}

std::vector<MouthOverlay> readMouths(ByteReader& in, const FrameTables& tables) {
    return readList(in, in.u8(), {.smallest = kSmallestMouth}, [&] { return readMouth(in, tables); });
}

void writeMouth(ByteWriter& out, const MouthOverlay& overlay, const EncodedImage& image) {
    out.u8(static_cast<std::uint8_t>(overlay.mouth));
    out.u8(overlay.replacesTopImage ? 1 : 0);
    out.u16(overlay.image);
    out.u8(0);
    out.u8(0); // no region
    out.i16(overlay.x);
    out.i16(overlay.y);
    out.u16(image.width / 2);
    out.u16(image.height / 2);
}

} // namespace

Frame readFrame(ByteReader& in, const FrameTables& tables) {
    Frame frame;
    frame.images = readImages(in, tables);
    const std::uint16_t sound = in.u16();
    if (sound < tables.sounds)
        frame.sound = sound;
    frame.duration = FrameDuration(in.u16());
    const std::int16_t exitFrame = in.i16();
    if (exitFrame >= 0 && static_cast<std::size_t>(exitFrame) < tables.frames)
        frame.exitFrame = static_cast<std::uint16_t>(exitFrame);
    frame.branches = readBranches(in, tables);
    frame.mouths = readMouths(in, tables);
    return frame;
}

void writeFrame(ByteWriter& out, const Frame& frame, const std::vector<EncodedImage>& images) {
    out.u16(static_cast<std::uint16_t>(frame.images.size()));
    for (const FrameImage& image : frame.images) {
        out.u32(image.image);
        out.i16(image.x);
        out.i16(image.y);
    }
    out.u16(frame.sound.value_or(kNoSound));
    out.u16(static_cast<std::uint16_t>(frame.duration.count()));
    out.i16(frame.exitFrame ? static_cast<std::int16_t>(*frame.exitFrame) : kNoExitFrame);
    out.u8(static_cast<std::uint8_t>(frame.branches.size()));
    for (const Branch& branch : frame.branches) {
        out.u16(branch.frame);
        out.u16(branch.percent);
    }
    out.u8(static_cast<std::uint8_t>(frame.mouths.size()));
    for (const MouthOverlay& overlay : frame.mouths)
        writeMouth(out, overlay, images[overlay.image]);
}

} // namespace brovin::character
