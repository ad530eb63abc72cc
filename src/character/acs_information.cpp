#include "character/acs_information.h"

#include "character/acs_balloon.h"
#include "character/acs_colours.h"
#include "character/acs_format.h"
#include "character/acs_limits.h"
#include "character/acs_voice.h"

#include <array>
#include <utility>

namespace brovin::character {
namespace {

constexpr std::string_view kInformation = "The character information";

SharedBytes readTrayPicture(const SharedBytes& file, ByteReader& in) {
    const std::uint32_t size = in.u32();
    if (size > kMostTrayIconBytes)
        in.fail("has a tray icon that is too large");
    const std::uint64_t position = in.position();
    in.skip(size);
    return in.ok() ? file.part(position, size) : SharedBytes();
}

TrayIcon readTrayIcon(const SharedBytes& file, ByteReader& in) {
    TrayIcon icon;
    icon.mask = readTrayPicture(file, in);
    icon.picture = readTrayPicture(file, in);
    return icon;
}

State readState(ByteReader& in, const NameIndex& animations) {
    State state;
    state.name = readText(in, kMostNameUnits);
    const ListBounds bounds{kSmallestText, kMostStateAnimations, "has a state of too many animations"};
    state.animations =
        readList(in, in.u16(), bounds, [&] { return animations.find(readText(in, kMostNameUnits)); });
    return state;
}

std::vector<State> readStates(ByteReader& in, const NameIndex& animations) {
    return readList(in, in.u16(), {kSmallestState, kMostStates, "has too many states"},
                    [&] { return readState(in, animations); });
}

/// Which of the optional records are there.
struct Layout {
    bool voice = false;
    bool balloon = false;
};

/// Reads the tail in one layout after the other.
class TailReader {
public:
    TailReader(const SharedBytes& file, const NameIndex& animations, std::uint32_t flags)
        : file_(file), animations_(animations), flags_(flags) {}

    [[nodiscard]] InformationTail read(ByteReader& in, const Layout& layout) const {
        InformationTail tail;
        if (layout.voice)
            tail.voice = readVoice(in);
        if (layout.balloon)
            tail.balloon = readBalloon(in, flags_);
        tail.palette = readPalette(in);
        if (readPresence(in))
            tail.trayIcon = readTrayIcon(file_, in);
        tail.states = readStates(in, animations_);
        return tail;
    }

private:
    const SharedBytes& file_;
    const NameIndex& animations_;
    std::uint32_t flags_;
};

/// The likeliest first: as the flags say, then with one of them wrong, then both.
std::array<Layout, 4> layouts(std::uint32_t flags) {
    const bool voice = (flags & kVoiceOn) != 0;
    const bool balloon = (flags & kBalloonOn) != 0;
    return {{{voice, balloon}, {!voice, balloon}, {voice, !balloon}, {!voice, !balloon}}};
}

std::uint32_t flagsOf(const CharacterData& character) {
    return (character.voice ? kVoiceOn : kVoiceOff) | (character.balloon ? kBalloonOn : kBalloonOff) |
           (character.balloon ? balloonFlags(*character.balloon) : 0U) |
           (character.standardAnimations ? kStandardAnimations : 0U);
}

void writeTrayPicture(ByteWriter& out, const SharedBytes& picture) {
    out.u32(static_cast<std::uint32_t>(picture.size()));
    out.bytes(picture.view());
}

void writeStates(ByteWriter& out, const CharacterData& character) {
    out.u16(static_cast<std::uint16_t>(character.states.size()));
    for (const State& state : character.states) {
        writeText(out, state.name);
        out.u16(static_cast<std::uint16_t>(state.animations.size()));
        for (const std::uint32_t animation : state.animations)
            writeText(out, character.animations[animation].name);
    }
}

} // namespace

LoadResult<InformationHead> readInformationHead(ByteReader& in) {
    InformationHead head;
    head.format.minor = in.u16();
    head.format.major = in.u16();
    if (in.ok() && head.format.major < kFormatMajor)
        return LoadError{LoadProblem::UnsupportedVersion, kInformation, "is of an older version",
                         in.position()};
    if (in.ok() && head.format.major > kFormatMajor)
        return LoadError{LoadProblem::NewerVersion, kInformation, "is of a newer version", in.position()};
    head.localized = readLocator(in);
    head.guid = readGuid(in);
    head.width = in.u16();
    head.height = in.u16();
    const auto possible = [](std::uint16_t side) { return side > 0 && side <= kMostFrameSide; };
    if (!possible(head.width) || !possible(head.height))
        in.fail("has a frame of no possible size");
    head.transparentIndex = in.u8();
    head.flags = in.u32();
    head.animationSet.major = in.u16();
    head.animationSet.minor = in.u16();
    if (!in.ok())
        return damaged(kInformation, in);
    return head;
}

LoadResult<InformationTail> readInformationTail(const SharedBytes& file, const ByteReader& in,
                                                std::uint32_t flags, const NameIndex& animations) {
    const TailReader reader(file, animations, flags);
    std::optional<InformationTail> withRest;
    std::optional<LoadError> firstError;
    for (const Layout& layout : layouts(flags)) {
        ByteReader attempt = in;
        InformationTail tail = reader.read(attempt, layout);
        if (!attempt.ok()) {
            if (!firstError)
                firstError = damaged(kInformation, attempt);
        } else if (attempt.left() == 0) {
            return tail;
        } else if (!withRest) {
            withRest = std::move(tail);
        }
    }
    if (withRest)
        return *std::move(withRest);
    return *firstError;
}

void writeInformation(ByteWriter& out, const CharacterData& character, const Locator& localized) {
    out.u16(character.formatVersion.minor);
    out.u16(character.formatVersion.major);
    writeLocator(out, localized);
    writeGuid(out, character.guid);
    out.u16(character.width);
    out.u16(character.height);
    out.u8(character.transparentIndex);
    out.u32(flagsOf(character));
    out.u16(character.animationSetVersion.major);
    out.u16(character.animationSetVersion.minor);
    if (character.voice)
        writeVoice(out, *character.voice);
    if (character.balloon)
        writeBalloon(out, *character.balloon);
    writePalette(out, character.palette);
    out.u8(character.trayIcon ? 1 : 0);
    if (character.trayIcon) {
        writeTrayPicture(out, character.trayIcon->mask);
        writeTrayPicture(out, character.trayIcon->picture);
    }
    writeStates(out, character);
}

} // namespace brovin::character
