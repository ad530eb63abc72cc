#include "voice/statement.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

namespace brovin::voice {
namespace {

/// "word 0, mark 7, word 4" in the order in which they are heard, without the sounds.
std::string script(const Synthesis& synthesis) {
    std::string result;
    for (const SpeechEvent& event : synthesis.events) {
        std::string line;
        if (const auto* const word = std::get_if<WordBegins>(&event.what))
            line = "word " + std::to_string(word->offset);
        if (const auto* const bookmark = std::get_if<BookmarkPassed>(&event.what))
            line = "mark " + std::to_string(bookmark->number);
        result += (result.empty() || line.empty() ? "" : ", ") + line;
    }
    return result;
}

std::int64_t sampleOf(const Synthesis& synthesis, std::size_t word) {
    for (const SpeechEvent& event : synthesis.events)
        if (const auto* const begins = std::get_if<WordBegins>(&event.what); begins && begins->offset == word)
            return event.sample;
    return -1;
}

/// The pitch that a voice is heard with, in hertz: the most frequent period of its loud parts.
double pitchOf(const std::vector<std::int16_t>& samples) {
    constexpr std::size_t kWindow = 1024;
    constexpr std::size_t kShortest = 50;
    constexpr std::size_t kLongest = 420;
    std::vector<double> all(kLongest);
    for (std::size_t at = 0; at + kWindow + kLongest < samples.size(); at += kWindow)
        for (std::size_t lag = kShortest; lag < kLongest; ++lag)
            for (std::size_t i = at; i < at + kWindow; i += 2)
                all[lag] += 1.0 * samples[i] * samples[i + lag];
    return static_cast<double>(kSpeechRate) /
           static_cast<double>(std::ranges::max_element(all) - all.begin());
}

class SynthesisTest : public ::testing::Test {
protected:
    SynthesisTest() { EXPECT_TRUE(voice.setTtsModeId("English (America)+m1")); }
    VoiceChoice voice{character::CharacterData{}, "en-us"};
};

TEST_F(SynthesisTest, reportsWordsAndBookmarksInTheirPlaces) {
    const char* const text = "One \\Mrk=1\\two, \\Spd=90\\three\\Mrk=2\\ four.\\Mrk=3\\";
    const Synthesis made = synthesise(voice, text);
    EXPECT_EQ(script(made), "word 0, mark 1, word 4, word 9, mark 2, word 15, mark 3");
    EXPECT_EQ(script(synthesise(voice, "naïve 😀 \\Emp\\café b")), "word 0, word 7, word 12, word 18");
    EXPECT_EQ(script(synthesise(voice, "\\Mrk=1\\\\Mrk=2\\")), "mark 1, mark 2") << "in silence";
}

TEST_F(SynthesisTest, obeysTheTags) {
    const std::string sentence = "We are all away in our yellow room.";
    const auto samples = [&](const std::string& text) {
        return static_cast<double>(synthesise(voice, text).samples.size());
    };
    const double usual = samples(sentence);
    EXPECT_LT(samples("\\Spd=300\\" + sentence), 0.7 * usual);
    EXPECT_GT(samples("\\Spd=90\\" + sentence), 1.4 * usual);
    EXPECT_GT(samples("\\RmW=1\\" + sentence), 1.3 * usual);
    EXPECT_GT(samples("\\RmS=1\\yellow"), 2 * samples("yellow"));

    const Synthesis mute = synthesise(voice, "\\Vol=0\\" + sentence);
    EXPECT_NEAR(static_cast<double>(mute.samples.size()), usual, 0.05 * usual);
    EXPECT_EQ(std::ranges::count(mute.samples, 0), static_cast<std::int64_t>(mute.samples.size()));

    const Synthesis partly = synthesise(voice, "Aloud, \\Vol=0\\but not this, \\Vol=65535\\aloud again.");
    const std::int64_t from = sampleOf(partly, 7) + kSpeechRate / 10;
    const std::int64_t to = sampleOf(partly, 21) - kSpeechRate / 20;
    ASSERT_LT(from + kSpeechRate / 4, to);
    EXPECT_FALSE(std::any_of(partly.samples.begin() + from, partly.samples.begin() + to, Synthesis::audible));
    EXPECT_GT(partly.lastSound(), to);

    const Synthesis paused = synthesise(voice, "One \\Pau=700\\two");
    EXPECT_GE(sampleOf(paused, 4) - kSpeechRate * 7 / 10, sampleOf(paused, 0));
}

TEST_F(SynthesisTest, hasThePitchThatIsAskedFor) {
    for (const int hertz : {80, 110, 140}) {
        const std::string text =
            "\\Chr=\"Monotone\"\\\\Pit=" + std::to_string(hertz) + "\\" + "We are all away now";
        EXPECT_NEAR(pitchOf(synthesise(voice, text).samples), hertz, 0.2 * hertz);
    }
}

TEST_F(SynthesisTest, comesToAnEndWhateverItIsGiven) {
    std::string words;
    while (words.size() < 10'000)
        words += "word and number 12 😀\\Pau=99\\";
    const std::string texts[] = {words,
                                 std::string(10'000, 'a'),
                                 std::string(10'000, '.'),
                                 "\x01\x02\x7F\x1B[0m",
                                 std::string("a\0b", 3),
                                 "\xFF\xC3\x28\xED\xA0\x80 text \xF5",
                                 "<speak>&amp;</speak> [[h@'loU]]",
                                 "مرحبا שלום 你好 こんにちは สวัสดี",
                                 "1234567890123456789012345678901234567890"};
    for (const std::string& text : texts) {
        const Synthesis made = synthesise(voice, text);
        EXPECT_TRUE(made.over) << text.substr(0, 20);
        std::int64_t last = 0;
        for (const SpeechEvent& event : made.events) {
            EXPECT_GE(event.sample, last);
            last = event.sample;
            if (const auto* const word = std::get_if<WordBegins>(&event.what)) {
                EXPECT_LT(word->offset, text.size());
            }
        }
    }
}

TEST_F(SynthesisTest, letsNobodyWaitForALongStatement) {
    const auto engine = SpeechEngine::shared();
    SpeechJob endless = voice.jobFor(runsOf(std::string(200'000, 'a')));
    const auto stream = endless.stream = std::make_shared<SpeechStream>();
    engine->speak(std::move(endless));
    EXPECT_TRUE(synthesise(voice, "Me too.").over);
    EXPECT_FALSE(stream->over()) << "it goes only as far ahead as it is listened to";
    stream->cancel();
    engine->wake();
}

} // namespace
} // namespace brovin::voice
