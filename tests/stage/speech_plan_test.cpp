#include "character/stage/speech_plan.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

namespace brovin::character {
namespace {

using Lines = std::vector<std::string>;

/// One line a step: "word <shown so far> @<spoken byte> <ms>".
Lines stepsOf(const SpeechPlan& plan) {
    Lines lines;
    for (const ReadingStep& step : plan.steps)
        switch (step.kind) {
        case ReadingStep::Kind::Word:
            lines.push_back("word " + plan.shown.substr(0, step.shownEnd) + " @" +
                            std::to_string(step.spokenAt) + " " + std::to_string(step.time.count()));
            break;
        case ReadingStep::Kind::Bookmark:
            lines.push_back("bookmark " + std::to_string(step.bookmark));
            break;
        case ReadingStep::Kind::Silence:
            lines.push_back("silence " + std::to_string(step.time.count()));
            break;
        }
    return lines;
}

SpeechPlan planOf(std::string_view text, const VoiceStyle& base = {}) {
    return planSpeech(parseSpeech(text), base);
}

TEST(SpeechPlan, dividesIntoWordsWithTheirReadingTime) {
    const struct {
        std::string_view text;
        Lines steps;
        std::string_view why;
    } cases[] = {
        {"Hello you", {"word Hello @0 400", "word Hello you @6 286"}, "150 words of seven letters a minute"},
        {" a\n", {"word  a @1 171"}, "blanks around"},
        {"ei\u200Bns", {"word ei @0 229", "word ei\u200Bns @5 229"}, "a zero-width space divides"},
        {"zwei\u00A0drei", {"word zwei\u00A0drei @0 629"}, "a no-break space does not"},
        {R"(\Map="one"="twenty one"\. On)",
         {"word twenty one. @0 743", "word twenty one. On @5 229"},
         "a substitution is one word, with what touches it"},
        {R"(Hel\Emp\lo\Mrk=7\)", {"word Hello @0 400", "bookmark 7"}, "tags do not divide words"},
        {R"(\Pau=300\a\Mrk=1\ \Mrk=2\)",
         {"silence 300", "word a @0 171", "bookmark 1", "bookmark 2"},
         "in order"},
        {R"(\Spd=300\Hello \Rst\Hello)",
         {"word Hello @0 200", "word Hello Hello @6 400"},
         "at the speed asked for"},
        {R"(\RSpd=200\Hello)", {"word Hello @0 200"}, "in per cent of the usual one"},
        {R"(\Spd=400\\RSpd=400\a)", {"word a @0 80"}, "no shorter than this"},
        {"", {}, "nothing"},
        {" \t\n", {}, "blanks only"},
    };
    for (const auto& [text, steps, why] : cases)
        EXPECT_EQ(steps, stepsOf(planOf(text))) << why;
    EXPECT_EQ(Lines{"word Hello @0 300"}, stepsOf(planOf("Hello", {.wordsPerMinute = 200})))
        << "the voice's speed";
    EXPECT_EQ(Milliseconds{10'000}, readingTime(1'000'000, {})) << "no longer than this";
}

TEST(SpeechPlan, hasWordsOnlyWhereSomethingIsShown) {
    EXPECT_TRUE(planOf("a").hasWords);
    EXPECT_FALSE(planOf(R"(\Mrk=1\\Pau=10\ )").hasWords);
    EXPECT_FALSE(planOf(R"(\Map="said"=""\)").hasWords);
}

struct RunText {
    std::string text;
    std::size_t offset;
    int pause;
    std::vector<std::int32_t> bookmarks;

    bool operator==(const RunText&) const = default;
};

std::vector<RunText> runsOf(const SpeechPlan& plan) {
    std::vector<RunText> runs;
    for (const SpokenRun& run : plan.runs)
        runs.push_back({run.text, run.offset, static_cast<int>(run.pause.count()), run.bookmarks});
    return runs;
}

TEST(SpeechPlan, makesRunsOfWhatIsSaidInOneWay) {
    using Runs = std::vector<RunText>;
    const struct {
        std::string_view text;
        Runs runs;
        std::string_view why;
    } cases[] = {
        {"one two", {{"one two", 0, 0, {}}}, "one style"},
        {R"(a \Emp\big day)",
         {{"a ", 0, 0, {}}, {"big", 2, 0, {}}, {" day", 5, 0, {}}},
         "one word emphasized"},
        {R"(a \Emp\ big)", {{"a  big", 0, 0, {}}}, "not directly before the word: no effect"},
        {R"(a\Pau=9\\Mrk=1\\Mrk=2\\Pau=8\b)",
         {{"a", 0, 0, {}}, {"", 1, 9, {}}, {"b", 1, 8, {1, 2}}},
         "in a run, bookmarks come before the pause"},
        {R"(\Map="said"="shown"\ x)", {{"said x", 0, 0, {}}}, "what is said, not what is shown"},
        {R"(\Mrk=5\)", {{"", 0, 0, {5}}}, "a bookmark alone"},
    };
    for (const auto& [text, runs, why] : cases)
        EXPECT_EQ(runs, runsOf(planOf(text))) << why;
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
