#include "character/stage/speech_plan.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

namespace brovin::character {
namespace {

using Lines = std::vector<std::string>;

SpeechPlan planOf(std::string_view text, const VoiceStyle& base = {}) {
    return planSpeech(parseSpeech(text), base);
}

/// One line a step: "<shown so far> @<spoken byte> <ms>" for a word.
Lines stepsOf(const SpeechPlan& plan) {
    Lines lines;
    for (const auto& [kind, spokenAt, shownEnd, time, bookmark] : plan.steps)
        if (kind == ReadingStep::Kind::Word)
            lines.push_back(plan.shown.substr(0, shownEnd) + " @" + std::to_string(spokenAt) + " " +
                            std::to_string(time.count()));
        else if (kind == ReadingStep::Kind::Bookmark)
            lines.push_back("bookmark " + std::to_string(bookmark));
        else
            lines.push_back("silence " + std::to_string(time.count()));
    return lines;
}

TEST(SpeechPlan, dividesIntoWordsWithTheirReadingTime) {
    const struct {
        std::string_view text;
        Lines steps;
        std::string_view why;
    } cases[] = {
        {"Hello you", {"Hello @0 400", "Hello you @6 286"}, "150 words of seven letters a minute"},
        {" a\n", {" a @1 171"}, "blanks around"},
        {"ei\u200Bns", {"ei @0 229", "ei\u200Bns @5 229"}, "a zero-width space divides"},
        {"zwei\u00A0drei", {"zwei\u00A0drei @0 629"}, "a no-break space does not"},
        {R"(\Map="one"="twenty one"\. On)",
         {"twenty one. @0 743", "twenty one. On @5 229"},
         "with what touches it"},
        {R"(Hel\Emp\lo\Mrk=7\)", {"Hello @0 400", "bookmark 7"}, "tags do not divide words"},
        {R"(\Pau=300\a\Mrk=1\ \Mrk=2\)", {"silence 300", "a @0 171", "bookmark 1", "bookmark 2"}, "in order"},
        {R"(\Spd=300\Hello \Rst\Hello)", {"Hello @0 200", "Hello Hello @6 400"}, "at the speed asked for"},
        {R"(\RSpd=200\Hello)", {"Hello @0 200"}, "in per cent of the usual one"},
        {R"(\Spd=400\\RSpd=400\a)", {"a @0 80"}, "no shorter than this"},
        {" \t\n", {}, "blanks only"},
    };
    for (const auto& [text, steps, why] : cases)
        EXPECT_EQ(steps, stepsOf(planOf(text))) << why;
    EXPECT_EQ(Lines{"Hello @0 300"}, stepsOf(planOf("Hello", {.wordsPerMinute = 200})))
        << "the voice's speed";
    EXPECT_EQ(Milliseconds{10'000}, readingTime(1'000'000, {})) << "no longer than this";
}

TEST(SpeechPlan, hasWordsOnlyWhereSomethingIsShown) {
    EXPECT_TRUE(planOf("a").hasWords);
    EXPECT_FALSE(planOf(R"(\Mrk=1\\Pau=10\ )").hasWords);
    EXPECT_FALSE(planOf(R"(\Map="said"=""\)").hasWords);
}

TEST(SpeechPlan, makesRunsOfWhatIsSaidInOneWay) {
    const struct {
        std::string_view text;
        Lines runs; ///< "offset text", with bookmarks and pause before the text
        std::string_view why;
    } cases[] = {
        {"one two", {"0 one two"}, "one style"},
        {R"(a \Emp\big day)", {"0 a ", "2 big", "5  day"}, "one word emphasized"},
        {R"(a \Emp\ big)", {"0 a  big"}, "not directly before the word: no effect"},
        {R"(a\Pau=9\\Mrk=1\\Mrk=2\\Pau=8\b)",
         {"0 a", "1 /9/", "1 1,2,/8/b"},
         "bookmarks come before the pause"},
        {R"(\Map="said"="shown"\ x)", {"0 said x"}, "what is said, not what is shown"},
        {R"(\Mrk=5\)", {"0 5,"}, "a bookmark alone"},
    };
    for (const auto& [text, expected, why] : cases) {
        Lines runs;
        for (const SpokenRun& run : planOf(text).runs) {
            std::string& line = runs.emplace_back(std::to_string(run.offset) + " ");
            for (const std::int32_t bookmark : run.bookmarks)
                line += std::to_string(bookmark) + ",";
            if (run.pause.count() > 0)
                line += "/" + std::to_string(run.pause.count()) + "/";
            line += run.text;
        }
        EXPECT_EQ(expected, runs) << why;
    }
}

TEST(SpeechPlan, resolvesTheStyleOfEachRun) {
    const VoiceStyle base{.wordsPerMinute = 170, .pitchHertz = 110};
    const auto runs =
        planOf(R"(\Pit=200\\Vol=9\\Chr=Whisper\a \RmS=1\\Emp\b\Rst\ c\Pro=0\\RPit=50\\Dem\d)", base).runs;
    ASSERT_EQ(4U, runs.size());
    const VoiceStyle first{.wordsPerMinute = 170, .pitchHertz = 200, .volume = 9, .tone = Tone::Whisper};
    VoiceStyle second = first;
    second.spelled = true;
    second.emphasis = Emphasis::Strong;
    VoiceStyle last = base;
    last.melody = false;
    last.pitchPercent = 50;
    last.emphasis = Emphasis::Reduced;
    EXPECT_EQ(first, runs[0].style);
    EXPECT_EQ(second, runs[1].style);
    EXPECT_EQ(base, runs[2].style);
    EXPECT_EQ(last, runs[3].style);
}

} // namespace
} // namespace brovin::character
