#include "character/acs_reader.h"
#include "character/acs_writer.h"

#include <gtest/gtest.h>

#include <string_view>

namespace brovin::character {
namespace {

using Bytes = std::vector<std::uint8_t>;
using Change = void (*)(CharacterData&);

CharacterData smallest() {
    CharacterData character;
    character.width = 1;
    character.height = 1;
    character.palette = {{1, 2, 3}};
    return character;
}

std::string repeated(std::string_view piece, std::size_t times) {
    std::string text;
    for (std::size_t i = 0; i < times; ++i)
        text.append(piece);
    return text;
}

void inform(CharacterData& character, std::string name, std::string description, std::string extra) {
    character.info = {{0x0409, std::move(name), std::move(description), std::move(extra)}};
}

Animation& animate(CharacterData& character, std::vector<Frame> frames = {}, const std::string& name = "a") {
    return character.animations.emplace_back(Animation{name, Transition::None, {}, std::move(frames)});
}

Frame frameOf(std::size_t images, std::size_t branches, std::size_t mouths) {
    Frame frame;
    frame.images.resize(images);
    frame.branches.resize(branches);
    frame.mouths.resize(mouths);
    return frame;
}

EncodedImage plainImage(std::uint16_t width, std::uint16_t height, std::size_t bytes) {
    return {width, height, ImageCoding::Plain, SharedBytes(Bytes(bytes, 7))};
}

/// Writes and reads a character; empty when it came back the same, and gives the same bytes again.
std::string difference(const CharacterData& character) {
    const auto file = writeCharacter(character);
    if (!file)
        return "not written: " + file.failure().reason;
    const auto back = readCharacter(SharedBytes(*file));
    if (!back)
        return "not read: " + message(back.failure());
    const auto again = writeCharacter(*back);
    return !(*back == character) ? "not the same" : !again || *again != *file ? "other bytes" : "";
}

TEST(AcsRoundTrip, keepsTheLargestOfEverything) {
    const std::pair<std::string_view, Change> kCases[] = {
        {"nothing at all", [](CharacterData&) {}},
        {"frame", [](CharacterData& c) { c.width = c.height = 1024; }},
        {"names", [](CharacterData& c) { inform(c, repeated("\u0416", 255), "", ""); }},
        {"texts",
         [](CharacterData& c) { inform(c, "", repeated("\U0001F600", 32767), repeated("x", 65535)); }},
        {"languages", [](CharacterData& c) { c.info.resize(256); }},
        {"palette", [](CharacterData& c) { c.palette.resize(256); }},
        {"states", [](CharacterData& c) { c.states.resize(256); }},
        {"animations of a state",
         [](CharacterData& c) {
             animate(c);
             c.states = {{"s", std::vector<std::uint32_t>(4096)}};
         }},
        {"animations",
         [](CharacterData& c) {
             for (int i = 0; i < 4096; ++i)
                 animate(c, std::vector<Frame>(), std::to_string(i));
         }},
        {"frames", [](CharacterData& c) { animate(c, std::vector<Frame>(65535)); }},
        {"images",
         [](CharacterData& c) {
             c.images.resize(65536);
             Frame frame = frameOf(256, 255, 255);
             frame.images[0] = {65535, -32768, 32767};
             frame.mouths[0] = {Mouth::OpenNarrow, true, 65535, 32767, -32768};
             animate(c, {frame});
         }},
        {"sounds", [](CharacterData& c) { c.sounds.resize(4096); }},
        {"icon",
         [](CharacterData& c) {
             const SharedBytes part(Bytes(std::size_t{256} << 10U, 0xAA));
             c.trayIcon = TrayIcon{part, part};
         }},
        {"pixels of a frame",
         [](CharacterData& c) {
             c.images.assign(1, plainImage(1024, 1024, 1U << 20U));
             animate(c, {frameOf(2, 0, 3)});
         }},
        {"wide image", [](CharacterData& c) { c.images.assign(1, plainImage(4096, 1024, 4U << 20U)); }},
        {"high image", [](CharacterData& c) { c.images.assign(1, plainImage(1024, 4096, 4U << 20U)); }},
    };
    for (const auto& [what, enlarge] : kCases) {
        CharacterData character = smallest();
        enlarge(character);
        EXPECT_EQ("", difference(character)) << what;
    }
}

TEST(AcsWriter, refusesWhatCouldNotBeReadBack) {
    const std::pair<std::string_view, Change> kCases[] = {
        {"the frame's width is out of its range", [](CharacterData& c) { c.width = 0; }},
        {"the frame's height is out of its range", [](CharacterData& c) { c.height = 1025; }},
        {"the format's version is not ours", [](CharacterData& c) { c.formatVersion.major = 3; }},
        {"the palette's size is out of its range", [](CharacterData& c) { c.palette.clear(); }},
        {"the palette has red and blue exchanged",
         [](CharacterData& c) {
             c.palette.resize(256);
             c.palette[252] = {255, 0, 0};
         }},
        {"the balloon has the yellow of tips, red and blue exchanged",
         [](CharacterData& c) {
             c.balloon.emplace().background = {225, 255, 255};
         }},
        {"the balloon's number of lines is out of its range",
         [](CharacterData& c) { c.balloon.emplace().lines = 0; }},
        {"the pitch is out of its range", [](CharacterData& c) { c.voice.emplace().pitchHertz = 501; }},
        {"the character's name is too long",
         [](CharacterData& c) { inform(c, repeated("\U0001F600", 128), "", ""); }},
        {"the description is not UTF-8 without zeros", [](CharacterData& c) { inform(c, "", "\xFF", ""); }},
        {"the extra data is not UTF-8 without zeros",
         [](CharacterData& c) { inform(c, "", "", std::string("a\0b", 3)); }},
        {"State Showing: there is no animation 0",
         [](CharacterData& c) {
             c.states = {{"Showing", {0}}};
         }},
        {"Animation 1 (wave): it has no name of its own",
         [](CharacterData& c) {
             animate(c, {}, "Wave");
             animate(c, {}, "wave");
         }},
        {"Animation 0 (): it has no name of its own", [](CharacterData& c) { c.animations.resize(1); }},
        {"Animation 0 (a): its transition and its return disagree",
         [](CharacterData& c) { animate(c).returnAnimation = 0; }},
        {"Animation 0 (a), frame 0: there is no image 0",
         [](CharacterData& c) { animate(c, std::vector(1, frameOf(0, 0, 1))); }},
        {"Animation 0 (a), frame 0: its duration is out of its range",
         [](CharacterData& c) {
             animate(c, std::vector<Frame>(1)).frames[0].duration = FrameDuration(65536);
         }},
        {"Animation 0 (a), frame 0: its images are larger than can be drawn in time",
         [](CharacterData& c) {
             c.images.assign(1, plainImage(1024, 1024, 1U << 20U));
             animate(c, {frameOf(3, 0, 1)});
         }},
        {"Image 0: its bytes do not fit its size",
         [](CharacterData& c) { c.images.assign(1, plainImage(4, 4, 15)); }},
        {"Sound 0: it is not a RIFF WAVE file",
         [](CharacterData& c) { c.sounds.emplace_back().wave = SharedBytes(Bytes(12)); }},
        {"The animations would take more than 16 MiB",
         [](CharacterData& c) {
             c.images.resize(1);
             animate(c, std::vector(1172, frameOf(0, 0, 255))); // 3,580 bytes each
         }},
        {"The file would be larger than 64 MiB",
         [](CharacterData& c) { c.images.assign(17, plainImage(2048, 2048, 4U << 20U)); }},
    };
    for (const auto& [reason, spoil] : kCases) {
        CharacterData character = smallest();
        spoil(character);
        const auto file = writeCharacter(character);
        EXPECT_EQ(reason, file ? "written" : file.failure().reason);
    }
}

} // namespace
} // namespace brovin::character
