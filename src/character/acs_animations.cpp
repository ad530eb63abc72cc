#include "character/acs_animations.h"

#include "character/acs_format.h"
#include "character/acs_frame.h"
#include "character/acs_limits.h"
#include "character/letter_case.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <utility>

namespace brovin::character {
namespace {

constexpr std::string_view kAnimationList = "The animation list";

struct IndexEntry {
    std::string name;
    Locator data;
};

std::vector<IndexEntry> readIndex(ByteReader& in) {
    return readList(in, in.u32(), {kSmallestIndexEntry, kMostAnimations, "has too many animations"}, [&in] {
        IndexEntry entry;
        entry.name = readText(in, kMostNameUnits);
        entry.data = readLocator(in);
        return entry;
    });
}

Transition transitionOf(std::uint8_t number) {
    switch (number) {
    case 0:
        return Transition::ReturnAnimation;
    case 1:
        return Transition::ExitBranches;
    default:
        return Transition::None;
    }
}

/// What the data of an animation say.
struct Content {
    Transition transition = Transition::None;
    std::string returnName;
    std::vector<Frame> frames;
};

Content readContent(ByteReader& in, FrameTables tables) {
    Content content;
    static_cast<void>(readText(in, kMostNameUnits)); // the name again, which need not agree
    content.transition = transitionOf(in.u8());
    content.returnName = readText(in, kMostNameUnits);
    tables.frames = in.u16();
    content.frames =
        readList(in, tables.frames, {.smallest = kSmallestFrame}, [&] { return readFrame(in, tables); });
    return in.ok() ? std::move(content) : Content();
}

/// Reads the data of all animations, within what they may take together.
class ContentReader {
public:
    ContentReader(std::span<const std::uint8_t> file, const FrameTables& tables)
        : file_(file), tables_(tables),
          allowance_(std::min(file.size() + kSharedAnimationBytes, kMostAnimationBytes)) {}

    Content read(const Locator& locator) {
        auto block = blockAt(file_, locator);
        if (!block)
            return {};
        block->bytes = block->bytes.first(std::min(block->bytes.size(), allowance_));
        ByteReader in = block->reader();
        Content content = readContent(in, tables_);
        allowance_ -= in.taken();
        return content;
    }

private:
    std::span<const std::uint8_t> file_;
    FrameTables tables_;
    std::size_t allowance_;
};

void resolveReturns(AnimationTable& table, const std::vector<std::string>& returnNames) {
    for (std::size_t i = 0; i < table.animations.size(); ++i) {
        Animation& animation = table.animations[i];
        if (animation.transition != Transition::ReturnAnimation)
            continue;
        animation.returnAnimation = table.names.find(returnNames[i]);
        if (!animation.returnAnimation)
            animation.transition = Transition::None;
    }
}

} // namespace

LoadResult<AnimationTable> readAnimations(std::span<const std::uint8_t> file, const Block& list,
                                          std::size_t imageCount, std::size_t soundCount) {
    ByteReader in = list.reader();
    const std::vector<IndexEntry> entries = readIndex(in);
    if (!in.ok())
        return damaged(kAnimationList, in);
    AnimationTable table;
    table.animations.reserve(entries.size());
    ContentReader contents(file, {imageCount, soundCount, 0});
    std::vector<std::string> returnNames;
    for (const IndexEntry& entry : entries) {
        if (!table.names.add(entry.name, static_cast<std::uint32_t>(table.animations.size())))
            continue;
        Content content = contents.read(entry.data);
        table.animations.push_back({entry.name, content.transition, std::nullopt, std::move(content.frames)});
        returnNames.push_back(std::move(content.returnName));
    }
    resolveReturns(table, returnNames);
    return table;
}

void writeAnimation(ByteWriter& out, const Animation& animation, const CharacterData& character) {
    writeText(out, capitals(animation.name));
    out.u8(static_cast<std::uint8_t>(animation.transition));
    const auto target = animation.returnAnimation;
    writeText(out, target ? capitals(character.animations[*target].name) : std::string());
    out.u16(static_cast<std::uint16_t>(animation.frames.size()));
    for (const Frame& frame : animation.frames)
        writeFrame(out, frame, character.images);
}

void writeAnimationList(ByteWriter& out, const std::vector<Animation>& animations,
                        const std::vector<Locator>& locators) {
    out.u32(static_cast<std::uint32_t>(animations.size()));
    for (std::size_t i = 0; i < animations.size(); ++i) {
        writeText(out, animations[i].name);
        writeLocator(out, locators[i]);
    }
}

} // namespace brovin::character
