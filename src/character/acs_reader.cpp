#include "character/acs_reader.h"

#include "character/acs_animations.h"
#include "character/acs_format.h"
#include "character/acs_information.h"
#include "character/acs_limits.h"
#include "character/acs_localized.h"
#include "character/acs_media.h"
#include "character/frame_cost.h"

#include <algorithm>
#include <array>
#include <utility>

namespace brovin::character {
namespace {

constexpr std::string_view kHeader = "The header";

/// The four blocks that everything else is found through.
struct Header {
    Block information;
    Block animations;
    Block images;
    Block sounds;
};

/// First bytes of files that are of the family but have another format.
constexpr std::array<std::uint8_t, 4> kWithoutAnimations{0xC4, 0xAB, 0xCD, 0xAB};
constexpr std::array<std::uint8_t, 8> kOlderGeneration{0xD0, 0xCF, 0x11, 0xE0, 0xA1, 0xB1, 0x1A, 0xE1};

bool beginsWith(std::span<const std::uint8_t> file, std::span<const std::uint8_t> bytes) {
    return file.size() >= bytes.size() && std::equal(bytes.begin(), bytes.end(), file.begin());
}

LoadResult<Header> readHeader(std::span<const std::uint8_t> file) {
    if (file.size() > kMostFileBytes)
        return LoadError{LoadProblem::TooLarge, "The file", "is too large", kMostFileBytes};
    if (beginsWith(file, kWithoutAnimations) || beginsWith(file, kOlderGeneration))
        return LoadError{LoadProblem::UnsupportedVersion, "The file", "is of an older generation", 0};
    ByteReader in(file);
    if (in.u32() != kSignature)
        return LoadError{LoadProblem::NotACharacterFile, "The file", "does not begin as a character does", 0};
    Header header;
    for (Block* block : {&header.information, &header.animations, &header.images, &header.sounds}) {
        const auto found = blockAt(file, readLocator(in));
        if (!found)
            in.fail("points outside of the file");
        else
            *block = *found;
    }
    if (!in.ok())
        return damaged(kHeader, in);
    return header;
}

/// What every reading begins with.
struct Beginning {
    Header header;
    InformationHead head;
    ByteReader in; ///< behind the head
};

LoadResult<Beginning> readBeginning(std::span<const std::uint8_t> file) {
    const auto header = readHeader(file);
    if (!header)
        return header.failure();
    ByteReader in = header->information.reader();
    const auto head = readInformationHead(in);
    if (!head)
        return head.failure();
    return Beginning{*header, *head, in};
}

std::vector<LocalizedInfo> readLocalizedAt(std::span<const std::uint8_t> file, const Locator& locator) {
    const auto block = blockAt(file, locator);
    if (!block)
        return {};
    ByteReader in = block->reader();
    std::vector<LocalizedInfo> info = readLocalized(in);
    return in.ok() ? std::move(info) : std::vector<LocalizedInfo>();
}

CharacterData characterOf(const InformationHead& head) {
    CharacterData character;
    character.guid = head.guid;
    character.formatVersion = head.format;
    character.animationSetVersion = head.animationSet;
    character.standardAnimations = (head.flags & kStandardAnimations) != 0;
    character.width = head.width;
    character.height = head.height;
    character.transparentIndex = head.transparentIndex;
    return character;
}

void moveInto(CharacterData& character, InformationTail&& tail) {
    character.voice = std::move(tail.voice);
    character.balloon = std::move(tail.balloon);
    character.palette = std::move(tail.palette);
    character.trayIcon = std::move(tail.trayIcon);
    character.states = std::move(tail.states);
}

} // namespace

LoadResult<CharacterData> readCharacter(const SharedBytes& file) {
    auto begun = readBeginning(file.view());
    if (!begun)
        return begun.failure();
    auto& [header, head, in] = *begun;
    auto images = readImages(file, header.images);
    if (!images)
        return images.failure();
    auto sounds = readSounds(file, header.sounds);
    if (!sounds)
        return sounds.failure();
    auto table = readAnimations(file.view(), header.animations, images->size(), sounds->size());
    if (!table)
        return table.failure();
    if (!allCanBeDrawn(table->animations, *images))
        return LoadError{LoadProblem::TooLarge, "The animation list",
                         "has a frame of more pixels than can be drawn in time", 0};
    auto tail = readInformationTail(file, in, head.flags, table->names);
    if (!tail)
        return tail.failure();
    CharacterData character = characterOf(head);
    character.info = readLocalizedAt(file.view(), head.localized);
    character.images = std::move(*images);
    character.sounds = std::move(*sounds);
    character.animations = std::move(table->animations);
    moveInto(character, std::move(*tail));
    return character;
}

LoadResult<Listing> readListing(std::span<const std::uint8_t> file, LanguageId language) {
    const auto begun = readBeginning(file);
    if (!begun)
        return begun.failure();
    Listing listing{begun->head.guid, {}, {}};
    const std::vector<LocalizedInfo> info = readLocalizedAt(file, begun->head.localized);
    if (const LocalizedInfo* entry = chooseInfo(info, language)) {
        listing.name = entry->name;
        listing.description = entry->description;
    }
    return listing;
}

} // namespace brovin::character
