#include "desktop/voice/espeak_voice.h"
#include "desktop/voice/sound_player.h"

#include "voice/statement.h"
#include "voice/wave_maker.h"

#include <gtest/gtest.h>

#include <chrono>
#include <memory>

namespace brovin::voice {
namespace {

struct Nobody final : character::VoiceListener {
    void wordReached(std::size_t /*offset*/) override { ADD_FAILURE(); }
    void soundReached(std::string_view /*ipa*/) override { ADD_FAILURE(); }
    void bookmarkReached(std::int32_t /*bookmark*/) override { ADD_FAILURE(); }
    void speechEnded() override { ADD_FAILURE(); }
};

TEST(NoDevice, refusesToSpeakAtOnceAndSaysNothingAboutIt) {
    ::testing::internal::CaptureStderr();
    const auto began = std::chrono::steady_clock::now();
    EspeakVoice voice{character::CharacterData{}};
    Nobody nobody;
    EXPECT_FALSE(voice.available());
    EXPECT_FALSE(voice.say(runsOf("Hello"), nobody));
    voice.silence();
    auto data = std::make_shared<character::CharacterData>();
    data->sounds.push_back({character::SharedBytes(makeWave({}, std::vector<std::uint8_t>(44'100)))});
    SoundPlayer player(data);
    EXPECT_EQ(player.play(0), character::Milliseconds{0});
    EXPECT_LT(std::chrono::steady_clock::now() - began, std::chrono::milliseconds{500});
    EXPECT_EQ(::testing::internal::GetCapturedStderr(), "");
}

} // namespace
} // namespace brovin::voice
