#include "voice/heard.h"

#include "desktop/voice/sound_player.h"
#include "voice/wave_maker.h"

#include <QThread>

#include <algorithm>
#include <memory>

namespace brovin::voice {
namespace {

using std::chrono::milliseconds;
using std::chrono::seconds;

constexpr const char* kSentence = "Good evening. I have swept the folder, and thirty files are gone.";

/// From the first to the last audible sample.
double length(const std::vector<std::int16_t>& samples) {
    const Synthesis recorded{samples, {}, true};
    return static_cast<double>(recorded.lastSound() - recorded.firstSound()) / kSpeechRate * 1000;
}

TEST_F(HeardTest, hasTheSpokenLength) {
    const double expected = length(synthesise(voice.choice(), kSentence).samples);
    Recorder recorder;
    const auto began = Clock::now();
    ASSERT_TRUE(voice.say(runsOf(kSentence), listener));
    EXPECT_TRUE(listener.lines.empty()) << "nothing is told from within the call";
    ASSERT_TRUE(awaitEnd());
    const double told = inMs(listener.lines.back().at - began);
    recorder.awaitSilence();
    EXPECT_NEAR(length(recorder.samples()), expected, 30);
    EXPECT_NEAR(told, expected, 250) << "the end is told when it is reached";
    EXPECT_EQ(listener.ended, 1);
}

TEST_F(HeardTest, beginsWithin150Milliseconds) {
    double best = 1000;
    for (int i = 0; i < 3; ++i) {
        Recorder recorder;
        const auto asked = Clock::now();
        ASSERT_TRUE(voice.say(runsOf("All is well."), listener));
        ASSERT_TRUE(passUntil([&] { return recorder.heardAnything(); }, seconds{5}));
        best = std::min(best, inMs(recorder.heardAt() - asked));
        voice.silence();
    }
    EXPECT_LT(best, 150) << "from the call to the recording, both devices included";
}

TEST_F(HeardTest, isAsLoudAsItIsToldAndSilentWhenMuted) {
    const auto peak = [this](int percent) {
        Recorder recorder;
        voice.setLoudness(percent);
        listener.ended = 0;
        EXPECT_TRUE(voice.say(runsOf("Ah."), listener));
        EXPECT_TRUE(awaitEnd());
        recorder.awaitSilence();
        return std::ranges::max(recorder.samples());
    };
    EXPECT_NEAR(0.25, static_cast<double>(peak(50)) / peak(100), 0.02) << "half as loud to an ear";
    voice.setLoudness(0);
    EXPECT_FALSE(voice.say(runsOf("Ah."), listener)) << "the balloon keeps the pace of reading";
}

TEST_F(HeardTest, isSilentAtOnce) {
    Recorder recorder;
    ASSERT_TRUE(voice.say(runsOf(kSentence), listener));
    ASSERT_TRUE(passUntil([&] { return listener.lines.size() > 12; }, seconds{5}));
    voice.silence();
    const auto told = listener.lines.size();
    pass(milliseconds{150}); // what has left already
    const auto heard = Synthesis{recorder.samples(), {}, true}.lastSound();
    pass(milliseconds{400});
    EXPECT_EQ((Synthesis{recorder.samples(), {}, true}).lastSound(), heard);
    EXPECT_EQ(listener.lines.size(), told);
    EXPECT_EQ(listener.ended, 0);
}

TEST_F(HeardTest, mayBeSilencedByWhatItTells) {
    listener.onWord = [&] { voice.silence(); };
    ASSERT_TRUE(voice.say(runsOf(kSentence), listener));
    pass(milliseconds{600});
    EXPECT_EQ(listener.lines.size(), 1U);
    listener.onWord = [&] { // or be told to say something else
        listener.onWord = nullptr;
        EXPECT_TRUE(voice.say(runsOf("No."), listener));
    };
    ASSERT_TRUE(voice.say(runsOf(kSentence), listener));
    EXPECT_TRUE(awaitEnd(seconds{3}));
}

TEST_F(HeardTest, saysTheLastOfMany) {
    const auto began = Clock::now();
    for (int i = 0; i < 50; ++i)
        ASSERT_TRUE(voice.say(runsOf("\\Mrk=" + std::to_string(i + 1) + "\\Me."), listener));
    EXPECT_LT(inMs(Clock::now() - began), 2000);
    ASSERT_TRUE(awaitEnd());
    EXPECT_EQ(std::ranges::count(listener.lines, "mark 50", &Listener::Line::what), 1);
    EXPECT_EQ(std::ranges::count(listener.lines, "mark 49", &Listener::Line::what), 0);
    EXPECT_EQ(listener.ended, 1);
}

TEST_F(HeardTest, endsWhereThereIsNothingToHear) {
    ASSERT_TRUE(voice.say(runsOf("\\Mrk=1\\"), listener));
    ASSERT_TRUE(awaitEnd(seconds{2}));
    EXPECT_EQ(listener.lines.front().what, "mark 1");
    ASSERT_TRUE(voice.say({}, listener));
    EXPECT_TRUE(passUntil([&] { return listener.ended == 2; }, seconds{2}));
}

TEST_F(HeardTest, survivesABusyProgram) {
    ASSERT_TRUE(voice.say(runsOf(kSentence), listener));
    pass(milliseconds{300});
    QThread::msleep(1200); // no event comes through
    EXPECT_TRUE(awaitEnd(seconds{8}));
}

TEST_F(HeardTest, canBeDestroyedWhileSpeaking) {
    for (int i = 0; i < 3; ++i) {
        EspeakVoice other{character::CharacterData{}};
        ASSERT_TRUE(other.say(runsOf(std::string(20'000, 'a')), listener));
        pass(milliseconds{60 * i});
    }
    pass(milliseconds{100});
    EXPECT_EQ(listener.ended, 0);
}

TEST_F(HeardTest, playsOneSoundAtATime) {
    auto data = std::make_shared<character::CharacterData>();
    std::vector<std::uint8_t> tone(2 * 8'000 / 2);
    for (std::size_t i = 0; i < tone.size(); i += 2)
        tone[i + 1] = i / 2 % 20 < 10 ? 0x20 : 0xE0;
    data->sounds.push_back({character::SharedBytes(makeWave({.rate = 8'000}, tone))});
    data->sounds.push_back({character::SharedBytes({'R', 'I', 'F', 'F'})});
    SoundPlayer player(data);
    EXPECT_EQ(player.play(1), milliseconds{0});
    EXPECT_EQ(player.play(7), milliseconds{0});
    player.setLoudness(0);
    EXPECT_EQ(player.play(0), milliseconds{0}) << "muted";
    player.setLoudness(100);
    const auto heard = [&](auto stop) {
        Recorder recorder;
        EXPECT_EQ(player.play(0), milliseconds{500});
        EXPECT_TRUE(passUntil([&] { return recorder.heardAnything(); }, seconds{5}));
        stop();
        pass(milliseconds{700});
        return length(recorder.samples());
    };
    EXPECT_NEAR(heard([] {}), 500, 30);
    EXPECT_LT(heard([&] { player.stop(); }), 300) << "the rest is not heard";
}

} // namespace
} // namespace brovin::voice
