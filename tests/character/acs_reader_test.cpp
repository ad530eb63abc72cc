#include "character/acs_reader.h"

#include "character/acs_writer.h"
#include "character/indexed_image.h"
#include "raw_file.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string_view>
#include <tuple>

namespace brovin::character {
namespace {

using Bytes = std::vector<std::uint8_t>;

CharacterData read(const RawFile& file) {
    auto character = readCharacter(SharedBytes(file.bytes()));
    EXPECT_TRUE(character) << (character ? "" : message(character.failure()));
    return character ? *character : CharacterData();
}

CharacterData readWith(Table table, const Raw& block) {
    RawFile file = smallestFile();
    file.set(table, block);
    return read(file);
}

/// An animation block, written down byte by byte.
const Bytes kWaveBytes{
    0x04, 0,    0,    0,    0x57, 0,    0x41, 0, 0x56, 0,    0x45, 0,    0,    0, // "WAVE"
    0x00,                                                                         // a return animation
    0x0A, 0,    0,    0,    0x57, 0,    0x41, 0, 0x56, 0,    0x45, 0,    0x52, 0, // "WAVER"
    0x45, 0,    0x54, 0,    0x55, 0,    0x52, 0, 0x4E, 0,    0,    0,             // "ETURN"
    0x01, 0,                                                                      // one frame
    0x02, 0,    0x01, 0,    0,    0,    0x01, 0, 0xFF, 0xFF, 0,    0,    0,    0,    0, 0, 0, 0, // two images
    0xFF, 0xFF, 0x0C, 0,    0xFE, 0xFF, 0,                                                       // 12/100 s
    0x01, 0x04, 0x01, 0x01, 0,    0,    0,    0, 0,    0,    0,    0x03, 0,    0x01, 0, // one overlay
};

/// An image block: 6 by 3 pixels, three rows of 0A 10 10 10 10 0A.
const Bytes kImage =
    Raw({0,    6,    0,    3,    0,    1,    0x10, 0, 0, 0, 0,    0x14, 0x40, 4, 0x84, 2, 0, 0, 0x1D, 0xF7,
         0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0,    0, 0, 0, 0x20, 0,    0,    0, 0x20, 0, 0, 0, 1})
        .zeros(27)
        .bytes();

/// What the two blocks stand for, in a character that has nothing else.
CharacterData waver() {
    CharacterData character = read(smallestFile());
    character.images.assign(
        2, encodeImage({6, 3, {10, 16, 16, 16, 16, 10, 10, 16, 16, 16, 16, 10, 10, 16, 16, 16, 16, 10}}));
    Frame frame;
    frame.images = {{1, 1, -1}, {0, 0, 0}};
    frame.mouths = {{Mouth::OpenWide4, true, 1, 0, 0}};
    frame.duration = FrameDuration(12);
    character.animations = {{"Wave", Transition::ReturnAnimation, 1, {frame}},
                            {"WaveReturn", Transition::None, {}, {}}};
    return character;
}

TEST(AcsReader, readsBlocksWrittenByHand) {
    RawFile file = smallestFile();
    const auto image = file.add(Raw(kImage));
    const auto wave = file.add(Raw(kWaveBytes));
    const auto back = file.add(Raw().text(u"WAVERETURN").u8(2).text(u"").u16(0));
    file.set(Table::Images, Raw().u32(2).locator(image).u32(0).locator(image).u32(1234));
    file.set(Table::Animations, Raw().u32(2).text(u"Wave").locator(wave).text(u"WaveReturn").locator(back));
    const CharacterData character = read(file);
    EXPECT_EQ(waver(), character);
    EXPECT_EQ("{CA141FD0-AC7F-11D1-97A3-006008273008}", guidText(character.guid));
    EXPECT_EQ((Version{2, 1}), character.formatVersion);
    EXPECT_EQ((std::vector<Colour>{{255, 0, 0}, {0, 0, 255}}), character.palette);
}

TEST(AcsWriter, writesTheSameBlocks) {
    const auto file = writeCharacter(waver());
    ASSERT_TRUE(file);
    const auto has = [&file](const Bytes& block) {
        return std::search(file->begin(), file->end(), block.begin(), block.end()) != file->end();
    };
    EXPECT_TRUE(has(kWaveBytes));
    EXPECT_TRUE(has(kImage));
    EXPECT_EQ((Bytes{0xC3, 0xAB, 0xCD, 0xAB}), Bytes(file->begin(), file->begin() + 4));
}

Raw& voiceRecord(Raw& out, bool traits) {
    out.zeros(32).u32(150).u16(0xFFFF).u8(traits ? 1 : 0);
    return traits ? out.u16(0x0409).text(u"US").u16(1).u16(30).text(u"calm") : out;
}

Raw& balloonRecord(Raw& out) {
    out.u8(2).u8(28).u32(0x00010203).u32(0x00FFFFE1).u32(0).text(u"Sans");
    return out.u32(static_cast<std::uint32_t>(-16)).u32(700).u8(1).u8(0);
}

/// The flags say which optional records there are, and are not to be believed.
TEST(AcsReader, findsTheLayoutWhateverTheFlagsSay) {
    for (const std::uint32_t flags : {0x110U, 0x120U, 0x210U, 0x220U, 0U, 0x330U})
        for (unsigned truth = 0; truth < 8; ++truth) {
            Raw information = informationHead(flags);
            const bool voice = (truth & 1U) != 0;
            const bool balloon = (truth & 2U) != 0;
            if (voice)
                voiceRecord(information, (truth & 4U) != 0);
            if (balloon)
                balloonRecord(information);
            const CharacterData character = readWith(Table::Information, plainTail(information));
            EXPECT_EQ(voice, character.voice.has_value()) << "flags " << flags << ", truth " << truth;
            EXPECT_EQ(balloon, character.balloon.has_value()) << "flags " << flags << ", truth " << truth;
            EXPECT_EQ(2U, character.palette.size());
        }
}

/// The wrong layout may make sense too, but then it does not end with the block.
TEST(AcsReader, prefersTheLayoutThatEndsWithTheBlock) {
    Raw information = informationHead(0x110); // neither voice nor balloon, it says
    information.u32(1).zeros(28); // an engine that looks like a palette of one colour, and no voice
    information.u32(150).u16(200).u8(0);
    CharacterData character = readWith(Table::Information, plainTail(information));
    ASSERT_TRUE(character.voice);
    EXPECT_EQ(200, character.voice->pitchHertz);
    EXPECT_EQ(2U, character.palette.size());

    character = readWith(Table::Information, information.zeros(3));
    EXPECT_FALSE(character.voice) << "none ends with the block: the first that makes sense";
    EXPECT_EQ(1U, character.palette.size());
}

TEST(AcsReader, readsVoiceBalloonAndIcon) {
    Raw information = informationHead(0x00150220); // size to text, no auto-pace, standard animations
    voiceRecord(information, true);
    balloonRecord(information).u32(1).u32(0).u8(1).u32(2).u16(0x0102).u32(1).u8(7).u16(0);
    const CharacterData character = readWith(Table::Information, information);
    VoiceSettings voice;
    voice.wordsPerMinute = 150;
    voice.traits = VoiceTraits{0x0409, "US", Gender::Female, 30, "calm"};
    EXPECT_EQ(voice, character.voice);
    // The background in the file is the yellow of tips with red and blue exchanged.
    EXPECT_EQ(
        (BalloonSettings{2, 28, {1, 2, 3}, {255, 255, 225}, {}, "Sans", 16, 700, true, true, true, false}),
        character.balloon);
    EXPECT_EQ((TrayIcon{SharedBytes({2, 1}), SharedBytes({7})}), character.trayIcon);
    EXPECT_TRUE(character.standardAnimations);
}

TEST(AcsReader, bringsSettingsIntoTheirRange) {
    Raw information = informationHead(0x220);
    information.zeros(32).u32(49).u16(501).u8(1).u16(0).text(u"").u16(3).u16(0).text(u"");
    information.u8(200).u8(1).zeros(12).text(u"").u32(0x80000000).u32(1001).u8(2).u8(9);
    const CharacterData character = readWith(Table::Information, plainTail(information));
    VoiceSettings voice; // neither speed nor pitch
    voice.traits = VoiceTraits{0, "", Gender::Neutral, 0, ""};
    EXPECT_EQ(voice, character.voice);
    ASSERT_TRUE(character.balloon);
    EXPECT_EQ(128, character.balloon->lines);
    EXPECT_EQ(8, character.balloon->charactersPerLine);
    EXPECT_EQ(13, character.balloon->fontHeightPixels);
    EXPECT_EQ(400, character.balloon->fontWeight);
    EXPECT_TRUE(character.balloon->italic);
}

/// Files differ in whether red or blue comes first; the standard colours of a full palette tell.
TEST(AcsReader, tellsTheOrderOfColours) {
    for (const bool redFirst : {false, true}) {
        Raw information = informationHead(0x110);
        information.u32(256);
        for (std::uint32_t i = 0; i < 256; ++i)
            information.u32(i != 249 ? 0x00332211U : redFirst ? 0x000000FFU : 0x00FF0000U);
        const auto palette = readWith(Table::Information, information.u8(0).u16(0)).palette;
        EXPECT_EQ((Colour{255, 0, 0}), palette.at(249));
        EXPECT_EQ(redFirst ? (Colour{0x11, 0x22, 0x33}) : (Colour{0x33, 0x22, 0x11}), palette.at(0));
    }
}

TEST(AcsReader, comparesNamesWithoutCaseAndKeepsTheFirst) {
    RawFile file = smallestFile();
    const auto first = file.add(Raw().text(u"").u8(1).text(u"").u16(1).zeros(10));
    const auto second = file.add(Raw().text(u"").u8(7).text(u"").u16(0));
    Raw animations;
    animations.u32(4).text(u"Gr\u00FCn").locator(first).text(u"GR\u00DCN").locator(second);
    file.set(Table::Animations, animations.text(u"").locator(first).text(u"\u0416").locator(second));
    Raw information = informationHead(0x110);
    information.u32(1).u32(0).u8(0).u16(1).text(u"Showing").u16(4);
    information.text(u"gr\u00DCn").text(u"missing").text(u"").text(u"\u0436");
    file.set(Table::Information, information);
    const CharacterData character = read(file);
    ASSERT_EQ(2U, character.animations.size());
    EXPECT_EQ("Gr\u00FCn", character.animations[0].name);
    EXPECT_EQ(Transition::ExitBranches, character.animations[0].transition);
    EXPECT_EQ(Transition::None, character.animations[1].transition) << "an unknown one";
    EXPECT_EQ((std::vector<State>{{"Showing", {0, 1}}}), character.states);
}

TEST(AcsReader, leavesOutWhatPointsOutside) {
    RawFile file = smallestFile();
    Raw data;
    data.text(u"A").u8(0).text(u"NOWHERE").u16(2);
    data.u16(2).u32(1).u32(0).u32(0).u32(0);                           // images 1 and 0, of one
    data.u16(0).u16(5).u16(2);                                         // sound 0 of none, exit frame 2 of two
    data.u8(2).u16(2).u16(60).u16(1).u16(40);                          // branches to frames 2 and 1
    data.u8(4).u8(7).u8(0).u16(0).zeros(10);                           // no such mouth
    data.u8(6).u8(0).u16(1).zeros(10);                                 // no such image
    data.u8(6).u8(9).u16(0).u8(3).u8(1).u16(1).u16(2).u32(0).u32(5);   // with a region, which is skipped
    data.zeros(5).u8(0).u8(0).u16(0).zeros(10);                        //
    data.u16(0).u16(0xFFFF).u16(0).u16(0xFFFE).u8(0).u8(0).u32(12345); // an end point, and bytes left over
    const auto animation = file.add(data);
    file.set(Table::Animations, Raw().u32(1).text(u"A").locator(animation));
    file.set(Table::Images, Raw().u32(1).zeros(12));
    const CharacterData character = read(file);
    Frame frame;
    frame.images = {{0, 0, 0}};
    frame.branches = {{1, 40}};
    frame.mouths = {{Mouth::OpenNarrow, true, 0, 1, 2}, {Mouth::Closed, false, 0, 0, 0}};
    frame.duration = FrameDuration(5);
    EXPECT_EQ((std::vector<Animation>{{"A", Transition::None, {}, {frame, Frame()}}}), character.animations);
}

TEST(AcsReader, readsTextsThatAreNotQuiteTexts) {
    RawFile file = smallestFile();
    Raw info;
    info.u16(1).u16(0x0409).u32(4).u16(0xD83D).u16(0x41).u16(0xDE00).u16(0x42).u16(
        0x77); // halves, odd terminator
    info.u32(3).u16(0x41).u16(0).u16(0x42).u16(0).u32(2).u16(0xD83D).u16(0xDE00).u16(0);
    Raw information = informationHead(0x110, file.add(info));
    file.set(Table::Information, plainTail(information));
    EXPECT_EQ((std::vector<LocalizedInfo>{{0x0409, "\uFFFDA\uFFFDB", "A", "\U0001F600"}}), read(file).info);
}

TEST(ReadListing, picksTheLanguage) {
    RawFile file = smallestFile();
    Raw info;
    info.u16(4);
    for (const auto& [language, name] :
         {std::pair{0x0407, u"Hans"}, {0x0809, u"John"}, {0x0409, u"Joe"}, {0x0C07, u"Hansl"}})
        info.u16(static_cast<std::uint32_t>(language)).text(name).text(u"about").text(u"extra");
    Raw information = informationHead(0x110, file.add(info));
    file.set(Table::Information, plainTail(information));
    constexpr std::tuple<LanguageId, std::string_view, std::string_view> kCases[] = {
        {0x0C07, "Hansl", "the very language"},
        {0x0807, "Hans", "the first of the same primary language"},
        {0x1009, "John", "the same, before the English that is fallen back on"},
        {0x040C, "Joe", "English (US)"},
    };
    for (const auto& [language, name, why] : kCases) {
        const auto listing = readListing(file.bytes(), language);
        ASSERT_TRUE(listing);
        EXPECT_EQ(name, listing->name) << why;
        EXPECT_EQ("about", listing->description);
    }
    EXPECT_EQ(nullptr, chooseInfo({}, 0x0409));
    const std::vector<LocalizedInfo> french{{0x040C, "Jean", "", ""}};
    EXPECT_EQ(&french[0], chooseInfo(french, 0x0407)) << "else the first";
}

} // namespace
} // namespace brovin::character
