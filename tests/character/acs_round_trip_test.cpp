#include "character/acs_reader.h"
#include "character/acs_writer.h"
#include "character/soundness.h"
#include "random_character.h"

#include <gtest/gtest.h>

#include <functional>
#include <string_view>

namespace brovin::character {
namespace {

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

/// Writes and reads a character; empty when it came back the same.
std::string difference(const CharacterData& character) {
    const auto file = writeCharacter(character);
    if (!file)
        return "not written: " + file.error().reason;
    const auto back = readCharacter(SharedBytes(*file));
    if (!back)
        return "not read: " + message(back.error());
    return *back == character ? "" : "not the same";
}

TEST(AcsRoundTrip, keepsWhateverAChanceMakes) {
    for (std::uint32_t seed = 0; seed < 150; ++seed)
        ASSERT_EQ("", difference(RandomCharacter(seed).make())) << "seed " << seed;
}

TEST(AcsRoundTrip, isTheSameBytesEachTime) {
    for (std::uint32_t seed = 0; seed < 20; ++seed) {
        const auto first = writeCharacter(RandomCharacter(seed).make());
        const auto again = writeCharacter(RandomCharacter(seed).make());
        ASSERT_TRUE(first && again);
        const auto back = readCharacter(SharedBytes(*first));
        ASSERT_TRUE(back);
        const auto rewritten = writeCharacter(*back);
        ASSERT_TRUE(rewritten);
        EXPECT_EQ(*first, *again) << "seed " << seed;
        EXPECT_EQ(*first, *rewritten) << "seed " << seed;
    }
}

using Change = void (*)(CharacterData&);

TEST(AcsRoundTrip, keepsTheLargestOfEverything) {
    const struct {
        std::string_view what;
        Change enlarge;
    } kCases[] = {
        {"nothing at all", [](CharacterData&) {}},
        {"frame", [](CharacterData& c) { c.width = c.height = 1024; }},
        {"names",
         [](CharacterData& c) {
             c.info = {{1, repeated("\u0416", 255), "", ""}};
         }},
        {"texts",
         [](CharacterData& c) {
             c.info = {{1, "", repeated("\U0001F600", 32767), repeated("x", 65535)}};
         }},
        {"languages", [](CharacterData& c) { c.info.resize(256); }},
        {"palette", [](CharacterData& c) { c.palette.resize(256); }},
        {"states", [](CharacterData& c) { c.states.resize(256); }},
        {"animations of a state",
         [](CharacterData& c) {
             c.animations = {{"a", Transition::None, {}, {}}};
             c.states = {{"s", std::vector<std::uint32_t>(65535)}};
         }},
        {"animations",
         [](CharacterData& c) {
             for (int i = 0; i < 4096; ++i)
                 c.animations.push_back({std::to_string(i), Transition::ExitBranches, {}, {}});
         }},
        {"frames",
         [](CharacterData& c) {
             c.animations = {{"a", Transition::None, {}, std::vector<Frame>(65535)}};
         }},
        {"frame",
         [](CharacterData& c) {
             c.images.resize(1);
             Frame frame;
             frame.images.resize(256);
             frame.branches.resize(255);
             frame.mouths.resize(255);
             c.animations = {{"a", Transition::None, {}, {frame}}};
         }},
        {"images",
         [](CharacterData& c) {
             c.images.resize(65536);
             Frame frame;
             frame.images = {{65535, -32768, 32767}};
             frame.mouths = {{Mouth::OpenNarrow, true, 65535, 32767, -32768}};
             c.animations = {{"a", Transition::None, {}, {frame}}};
         }},
        {"sounds", [](CharacterData& c) { c.sounds.resize(4096); }},
        {"icon",
         [](CharacterData& c) {
             const SharedBytes part(std::vector<std::uint8_t>(std::size_t{256} << 10U, 0xAA));
             c.trayIcon = TrayIcon{part, part};
         }},
        {"image",
         [](CharacterData& c) {
             const SharedBytes plain(std::vector<std::uint8_t>(std::size_t{4096} * 1024, 7));
             c.images = {{4096, 1024, ImageCoding::Plain, plain}, {1024, 4096, ImageCoding::Plain, plain}};
         }},
    };
    for (const auto& [what, enlarge] : kCases) {
        CharacterData character = smallest();
        enlarge(character);
        EXPECT_EQ("", difference(character)) << what;
    }
}

TEST(AcsWriter, refusesWhatCouldNotBeReadBack) {
    const struct {
        std::string_view reason;
        Change spoil;
    } kCases[] = {
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
         [](CharacterData& c) {
             c.info = {{0x0409, repeated("\U0001F600", 128), "", ""}};
         }},
        {"the description is not UTF-8 without zeros",
         [](CharacterData& c) {
             c.info = {{0x0409, "", "\xFF", ""}};
         }},
        {"the extra data is not UTF-8 without zeros",
         [](CharacterData& c) {
             c.info = {{0x0409, "", "", std::string("a\0b", 3)}};
         }},
        {"State Showing: there is no animation 0",
         [](CharacterData& c) {
             c.states = {{"Showing", {0}}};
         }},
        {"Animation 1 (wave): it has no name of its own",
         [](CharacterData& c) {
             c.animations = {{"Wave", Transition::None, {}, {}}, {"wave", Transition::None, {}, {}}};
         }},
        {"Animation 0 (): it has no name of its own", [](CharacterData& c) { c.animations.resize(1); }},
        {"Animation 0 (a): its transition and its return disagree",
         [](CharacterData& c) {
             c.animations = {{"a", Transition::None, 0, {}}};
         }},
        {"Animation 0 (a), frame 0: there is no image 0",
         [](CharacterData& c) {
             c.animations = {{"a", Transition::None, {}, std::vector<Frame>(1)}};
             c.animations[0].frames[0].mouths.resize(1);
         }},
        {"Animation 0 (a), frame 0: its duration is out of its range",
         [](CharacterData& c) {
             c.animations = {{"a", Transition::None, {}, std::vector<Frame>(1)}};
             c.animations[0].frames[0].duration = FrameDuration(65536);
         }},
        {"Image 0: its bytes do not fit its size",
         [](CharacterData& c) {
             c.images = {{4, 4, ImageCoding::Plain, SharedBytes(std::vector<std::uint8_t>(15))}};
         }},
        {"Sound 0: it is not a RIFF WAVE file",
         [](CharacterData& c) { c.sounds = {{SharedBytes(std::vector<std::uint8_t>(12))}}; }},
        {"The animations would take more than 16 MiB",
         [](CharacterData& c) {
             c.images.resize(1);
             Frame frame; // 3,580 bytes
             frame.mouths.resize(255);
             c.animations = {{"a", Transition::None, {}, std::vector<Frame>(4687, frame)}};
         }},
        {"The file would be larger than 64 MiB",
         [](CharacterData& c) {
             const SharedBytes plain(std::vector<std::uint8_t>(std::size_t{4} << 20U));
             c.images.assign(17, {2048, 2048, ImageCoding::Plain, plain});
         }},
    };
    for (const auto& [reason, spoil] : kCases) {
        CharacterData character = smallest();
        spoil(character);
        const auto file = writeCharacter(character);
        EXPECT_EQ(reason, file ? "written" : file.error().reason);
    }
}

} // namespace
} // namespace brovin::character
