#include "voice/heard.h"

namespace brovin::voice {
namespace {

using Lost = HeardTest;

TEST_F(Lost, goesOnInSilenceAndTellsTheRest) {
    const char* const text = "One, two, three, four, five, six, seven, eight.";
    const Synthesis expected = synthesise(voice.choice(), text);
    ::testing::internal::CaptureStderr();
    const auto began = Clock::now();
    ASSERT_TRUE(voice.say(runsOf(text), listener));
    ASSERT_TRUE(passUntil([&] { return listener.lines.size() > 8; }, std::chrono::seconds{5}));
    server->end();
    ASSERT_TRUE(awaitEnd());
    EXPECT_EQ(listener.lines.size(), expected.events.size() + 1);
    EXPECT_NEAR(inMs(Clock::now() - began), static_cast<double>(expected.samples.size()) / kSpeechRate * 1000,
                300);

    const auto again = Clock::now();
    EXPECT_FALSE(voice.say(runsOf(text), listener)) << "from here on the text sets the pace";
    EXPECT_LT(inMs(Clock::now() - again), 100);
    EXPECT_EQ(::testing::internal::GetCapturedStderr(), "");
}

} // namespace
} // namespace brovin::voice
