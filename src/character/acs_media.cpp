#include "character/acs_media.h"

#include "character/acs_format.h"
#include "character/acs_limits.h"
#include "character/indexed_image.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace brovin::character {
namespace {

/// Size, type (a list of rectangles), and a count, size and bounding box of nothing.
constexpr std::uint32_t kEmptyRegionBytes = 32;
constexpr std::uint32_t kRegionOfRectangles = 1;

/// What `read` makes of each place that a list of them names. `name`: of the list, for a complaint.
template <class Read>
auto readEach(const Block& list, std::string_view name, std::size_t most, Read read)
    -> LoadResult<std::vector<decltype(read(Locator()))>> {
    ByteReader in = list.reader();
    const auto locators = readList(in, in.u32(), {kSmallestIndexEntry, most, "has too many entries"}, [&in] {
        const Locator locator = readLocator(in);
        in.skip(4); // a checksum by an unknown rule
        return locator;
    });
    if (!in.ok())
        return damaged(name, in);
    std::vector<decltype(read(Locator()))> items;
    items.reserve(locators.size());
    for (const Locator& locator : locators)
        items.push_back(read(locator));
    return items;
}

EncodedImage readImage(const SharedBytes& file, const Locator& locator) {
    const auto block = blockAt(file.view(), locator);
    if (!block || block->bytes.size() < kSmallestImageBlock)
        return {};
    ByteReader in = block->reader();
    in.skip(1); // of unknown meaning, seen as 0 and 1
    EncodedImage image;
    image.width = in.u16();
    image.height = in.u16();
    image.coding = in.u8() != 0 ? ImageCoding::Packed : ImageCoding::Plain;
    std::size_t size = in.u32();
    const auto plainBytes = plainImageBytes(image.width, image.height);
    if (!plainBytes || size > in.left())
        return {};
    if (image.coding == ImageCoding::Plain) {
        if (size < *plainBytes)
            return {};
        size = *plainBytes;
    }
    image.bytes = file.part(in.position(), size);
    return image;
}

/// A region that says nothing, so that only the transparent colour tells the shape.
void writeEmptyRegion(ByteWriter& out) {
    out.u32(0); // stored as it is
    out.u32(kEmptyRegionBytes);
    out.u32(kEmptyRegionBytes);
    out.u32(kRegionOfRectangles);
    out.bytes(std::array<std::uint8_t, kEmptyRegionBytes - 8>{});
}

} // namespace

LoadResult<std::vector<EncodedImage>> readImages(const SharedBytes& file, const Block& list) {
    return readEach(list, "The image list", kMostImages,
                    [&file](const Locator& locator) { return readImage(file, locator); });
}

LoadResult<std::vector<Sound>> readSounds(const SharedBytes& file, const Block& list) {
    return readEach(list, "The sound list", kMostSounds, [&file](const Locator& locator) {
        const auto block = blockAt(file.view(), locator);
        const bool playable = block && block->bytes.size() <= kMostSoundBytes && isWave(block->bytes);
        return Sound{playable ? file.part(locator.offset, locator.size) : SharedBytes()};
    });
}

bool isWave(std::span<const std::uint8_t> bytes) {
    const auto has = [bytes](std::size_t at, std::string_view letters) {
        return bytes.size() >= at + letters.size() &&
               std::equal(letters.begin(), letters.end(), bytes.begin() + static_cast<std::ptrdiff_t>(at));
    };
    return has(0, "RIFF") && has(8, "WAVE");
}

void writeImage(ByteWriter& out, const EncodedImage& image) {
    out.u8(0);
    if (image == EncodedImage())
        return; // that byte alone is an empty image
    out.u16(image.width);
    out.u16(image.height);
    out.u8(image.coding == ImageCoding::Packed ? 1 : 0);
    out.u32(static_cast<std::uint32_t>(image.bytes.size()));
    out.bytes(image.bytes.view());
    writeEmptyRegion(out);
}

void writeMediaList(ByteWriter& out, const std::vector<Locator>& locators) {
    out.u32(static_cast<std::uint32_t>(locators.size()));
    for (const Locator& locator : locators) {
        writeLocator(out, locator);
        out.u32(0); // in place of the checksum
    }
}

} // namespace brovin::character
