#include "character/acs_writer.h"

#include "character/acs_animations.h"
#include "character/acs_basics.h"
#include "character/acs_format.h"
#include "character/acs_information.h"
#include "character/acs_limits.h"
#include "character/acs_localized.h"
#include "character/acs_media.h"
#include "character/byte_writer.h"
#include "character/soundness.h"

#include <array>
#include <cstddef>
#include <numeric>
#include <utility>

namespace brovin::character {
namespace {

constexpr std::size_t kHeaderLocators = 4;
constexpr std::size_t kLocatorBytes = 8;

/// Appends what `write` writes, as a block.
template <class Write>
Locator appendBlock(ByteWriter& out, Write write) {
    const std::size_t offset = out.size();
    write(out);
    return {static_cast<std::uint32_t>(offset), static_cast<std::uint32_t>(out.size() - offset)};
}

template <class Items, class Write>
std::vector<Locator> appendBlocks(ByteWriter& out, const Items& items, Write write) {
    std::vector<Locator> locators;
    locators.reserve(items.size());
    for (const auto& item : items)
        locators.push_back(appendBlock(out, [&](ByteWriter& block) { write(block, item); }));
    return locators;
}

/// Where the blocks stand that other blocks point to.
struct Places {
    std::vector<Locator> images;
    std::vector<Locator> sounds;
    std::vector<Locator> animations;
    Locator localized;
};

Places writeData(ByteWriter& out, const CharacterData& character) {
    Places places;
    places.images = appendBlocks(out, character.images, writeImage);
    places.sounds = appendBlocks(
        out, character.sounds, [](ByteWriter& block, const Sound& sound) { block.bytes(sound.wave.view()); });
    places.animations =
        appendBlocks(out, character.animations, [&](ByteWriter& block, const Animation& animation) {
            writeAnimation(block, animation, character);
        });
    places.localized = appendBlock(out, [&](ByteWriter& block) { writeLocalized(block, character.info); });
    return places;
}

/// Writes the blocks that the header points to, and the pointers into the header.
void writeTables(ByteWriter& out, const CharacterData& character, const Places& places) {
    const std::array<Locator, kHeaderLocators> tables{
        appendBlock(out, [&](ByteWriter& block) { writeInformation(block, character, places.localized); }),
        appendBlock(
            out,
            [&](ByteWriter& block) { writeAnimationList(block, character.animations, places.animations); }),
        appendBlock(out, [&](ByteWriter& block) { writeMediaList(block, places.images); }),
        appendBlock(out, [&](ByteWriter& block) { writeMediaList(block, places.sounds); })};
    for (std::size_t i = 0; i < tables.size(); ++i) {
        const std::size_t at = sizeof kSignature + i * kLocatorBytes;
        out.patchU32(at, tables[i].offset);
        out.patchU32(at + sizeof tables[i].offset, tables[i].size);
    }
}

/// To be asked before anything is written, so that no file is built that is much too large.
std::size_t mediaBytes(const CharacterData& character) {
    std::size_t bytes = 0;
    for (const EncodedImage& image : character.images)
        bytes += image.bytes.size();
    for (const Sound& sound : character.sounds)
        bytes += sound.wave.size();
    return bytes;
}

std::size_t bytesOf(const std::vector<Locator>& locators) {
    return std::accumulate(locators.begin(), locators.end(), std::size_t{0},
                           [](std::size_t sum, const Locator& locator) { return sum + locator.size; });
}

} // namespace

platform::Result<std::vector<std::uint8_t>, WriteError> writeCharacter(const CharacterData& character) {
    if (std::string problem = unsoundness(character); !problem.empty())
        return WriteError{std::move(problem)};
    const WriteError tooLarge{"The file would be larger than 64 MiB"};
    if (mediaBytes(character) > kMostFileBytes)
        return tooLarge;
    ByteWriter out;
    out.u32(kSignature);
    for (std::size_t i = 0; i < kHeaderLocators; ++i)
        writeLocator(out, {});
    const Places places = writeData(out, character);
    if (bytesOf(places.animations) > kMostAnimationBytes)
        return WriteError{"The animations would take more than 16 MiB"};
    writeTables(out, character, places);
    if (out.size() > kMostFileBytes)
        return tooLarge;
    return std::move(out).take();
}

} // namespace brovin::character
