// What the characters that come along promise to the program, whose phrases call for animations by name and
// whose messages are spoken in the pose where an animation ends.

#include "character/acs_reader.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <sstream>
#include <string>
#include <vector>

namespace brovin::character {
namespace {

CharacterData shipped(const std::string& file) {
    std::ifstream stream(std::filesystem::path(BROVIN_CHARACTERS) / (file + ".acs"), std::ios::binary);
    auto data = readCharacter(SharedBytes({std::istreambuf_iterator<char>(stream), {}}));
    EXPECT_TRUE(data) << file;
    return data ? std::move(*data) : CharacterData{};
}

/// The animations that everybody who writes phrases may count on: those in which a character speaks, and
/// others.
constexpr const char* kSpeaking =
    "Alert Announce Confused Congratulate Decline DontRecognize Explain GestureDown GestureLeft GestureRight "
    "GestureUp Greet Pleased Sad StartListening StopListening Suggest Surprised Think Uncertain Wave";
constexpr const char* kSilent = "Acknowledge Blink DoMagic1 DoMagic2 GetAttention GetAttentionContinued "
                                "GetAttentionReturn Hearing1 Hearing2 "
                                "Hide Idle1_1 Idle1_2 Idle2_1 Idle2_2 Idle3_1 Idle3_2 LookDown LookLeft "
                                "LookRight LookUp MoveDown MoveLeft "
                                "MoveRight MoveUp Process Processing Read ReadContinued ReadReturn Reading "
                                "RestPose Search Searching Show Write "
                                "WriteContinued WriteReturn Writing";
constexpr const char* kStates = "Showing Hiding Speaking MovingUp MovingDown MovingLeft MovingRight "
                                "GesturingUp GesturingDown GesturingLeft "
                                "GesturingRight Listening Hearing IdlingLevel1 IdlingLevel2 IdlingLevel3";

std::vector<std::string> words(const char* text) {
    std::istringstream stream(text);
    return {std::istream_iterator<std::string>(stream), {}};
}

const Animation* find(const CharacterData& data, const std::string& name) {
    const auto found = std::find_if(data.animations.begin(), data.animations.end(),
                                    [&](const Animation& animation) { return animation.name == name; });
    return found == data.animations.end() || found->frames.empty() ? nullptr : &*found;
}

/// Whether it can speak in the picture on which it stands: the last one, behind which a frame without any may
/// end the animation.
bool speaksAtItsEnd(const Animation& animation) {
    std::set<Mouth> mouths;
    const auto last = std::find_if(animation.frames.rbegin(), animation.frames.rend(),
                                   [](const Frame& frame) { return !frame.images.empty(); });
    if (last != animation.frames.rend())
        for (const MouthOverlay& overlay : last->mouths)
            mouths.insert(overlay.mouth);
    return mouths.size() == kMouthCount;
}

class ShippedCharacter : public testing::TestWithParam<const char*> {
protected:
    const CharacterData data_ = shipped(GetParam());
};

TEST_P(ShippedCharacter, isCalledTheSameInEachLanguageThatShips) {
    std::string name = GetParam();
    name[0] = static_cast<char>(name[0] - 'a' + 'A');
    std::set<LanguageId> languages;
    for (const LocalizedInfo& info : data_.info) {
        languages.insert(info.language);
        EXPECT_EQ(name, info.name) << "phrases are chosen by the name";
        EXPECT_FALSE(info.description.empty());
    }
    EXPECT_EQ((std::set<LanguageId>{0x0407, 0x0409, 0x040C, 0x0419, 0x0C0A}), languages);
}

TEST_P(ShippedCharacter, doesAllThatAPhraseMayAskFor) {
    for (const std::string& name : words(kSilent))
        EXPECT_NE(nullptr, find(data_, name)) << name;
    for (const std::string& name : words(kSpeaking)) {
        const Animation* const animation = find(data_, name);
        ASSERT_NE(nullptr, animation) << name;
        EXPECT_TRUE(speaksAtItsEnd(*animation)) << name << " is where it speaks";
        EXPECT_NE(Transition::None, animation->transition) << name << " has a way back";
    }
    EXPECT_TRUE(speaksAtItsEnd(*find(data_, "RestPose")));
    for (const std::string& name : words(kStates))
        EXPECT_TRUE(std::any_of(data_.states.begin(), data_.states.end(), [&](const State& state) {
            return state.name == name && !state.animations.empty();
        })) << name;
}

TEST_P(ShippedCharacter, isSeenAndHeard) {
    EXPECT_TRUE(data_.voice && data_.balloon);
    std::set<std::uint16_t> heard;
    for (const Animation& animation : data_.animations)
        for (const Frame& frame : animation.frames)
            if (frame.sound)
                heard.insert(*frame.sound);
    EXPECT_EQ(data_.sounds.size(), heard.size()) << "a sound that nothing plays";
    const Animation& show = *find(data_, "Show");
    auto unseen = FrameDuration::zero();
    for (auto frame = show.frames.begin(); frame != show.frames.end() && frame->images.empty(); ++frame)
        unseen += frame->duration;
    EXPECT_LE(unseen, std::chrono::milliseconds(200)) << "whoever chooses a character waits for it";
}

INSTANTIATE_TEST_SUITE_P(All, ShippedCharacter, testing::Values("peedy", "merlin", "genie", "robby"),
                         [](const auto& who) { return std::string(who.param); });

TEST(ShippedCharacters, areFourDifferentOnes) {
    std::set<std::string> guids;
    std::set<std::uint16_t> pitches;
    for (const char* file : {"peedy", "merlin", "genie", "robby"}) {
        const CharacterData data = shipped(file);
        guids.insert(guidText(data.guid));
        pitches.insert(data.voice->pitchHertz.value_or(0));
    }
    EXPECT_EQ(4U, guids.size());
    EXPECT_EQ(4U, pitches.size()) << "each has a voice of its own";
}

} // namespace
} // namespace brovin::character
