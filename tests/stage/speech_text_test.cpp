#include "character/stage/balloon_pacing.h"
#include "character/stage/mouth_shapes.h"
#include "character/stage/speech_plan.h"
#include "character/stage/speech_tags.h"

#include <gtest/gtest.h>

#include <array>
#include <initializer_list>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace brovin::character {
namespace {

using Lines = std::vector<std::string>;

/// The segments one behind another: "words[Emphasize 0]{spoken|shown}".
std::string shape(std::string_view input) {
    constexpr std::array kNames = {
        "",       "",         "Bookmark",  "Pause",        "Emphasize", "Deemphasize",  "Repeat",
        "Reset",  "Tone",     "Pitch",     "PitchPercent", "Speed",     "SpeedPercent", "Volume",
        "Melody", "Spelling", "WordPauses"};
    std::string shape;
    for (const auto& [kind, number, spoken, shown] : parseSpeech(input)) {
        if (kind == SegmentKind::Text)
            shape += spoken == shown ? spoken : "!";
        else if (kind == SegmentKind::Substitute)
            shape.append("{").append(spoken).append("|").append(shown).append("}");
        else
            shape.append("[")
                .append(kNames.at(static_cast<std::size_t>(kind)))
                .append(" ")
                .append(std::to_string(number))
                .append("]");
    }
    return shape;
}

TEST(SpeechTags, areTakenOutOfTheText) {
    constexpr struct {
        std::string_view text;
        std::string_view shape;
        std::string_view why;
    } kCases[] = {
        {"", "", "nothing"},
        {"Good evening", "Good evening", "no tags"},
        {R"(a\Pau=500\b)", "a[Pause 500]b", "between words"},
        {R"(\pAU=500\)", "[Pause 500]", "whatever the case"},
        {R"(\Emp\\Dem\\Rst\\Lst\)", "[Emphasize 0][Deemphasize 0][Reset 0][Repeat 0]", "side by side"},
        {R"(\Spd=120\\Pit=90\\Vol=0\)", "[Speed 120][Pitch 90][Volume 0]", "numbers"},
        {R"(\RmS=1\\RmW=1\\Pro=0\)", "[Spelling 1][WordPauses 1][Melody 0]", "switches"},
        {R"(\RSpd=50\\RPit=200\)", "[SpeedPercent 50][PitchPercent 200]", "four letters"},
        {R"(\Chr="Whisper"\\Chr=Monotone\)", "[Tone 2][Tone 1]", "quotation marks are optional"},
        {R"(\Chr=Angry\\Chr="normal"\)", "[Tone 0][Tone 0]", "unknown tones are normal"},
        {R"(\Ctx="E-mail"\x\Com=a secret\y\Vce=Gender="male"\z)", "xyz", "of no concern"},
        {R"(\Eng;{12}:go\x\Eng:go\y\Prn=tomato=t m\z)", "xyz", "of no concern"},
        {R"(\Foo\x\Foos=5\y)", "xy", "unknown"},

        {R"(\Map="hi"="Hello there"\!)", "{hi|Hello there}!", "the usual form"},
        {R"(\Map=""="shown"\\Map="said"=""\)", "{|shown}{said|}", "empty halves"},
        {R"(\Map="a\\b"="c\\"\)", R"({a\b|c\})", "a backslash is written twice"},
        {R"(\Map=a=b\x)", "x", "quotation marks are needed"},
        {R"(\Map="a"\x)", "x", "the other half is missing"},
        {R"(\Map="a"="b"c\x)", "x", "something follows"},
        {R"(\Map="a"="b\x)", "x", "the mark is missing"},

        {R"(\Pau=99999999999999999999999\)", "[Pause 60000]", "more than any number can hold"},
        {R"(\Pau=-99999999999999999999999\)", "[Pause 0]", "less than any"},
        {R"(\Spd=0\\Spd=401\\Pit=1\\Pit=9999\)", "[Speed 50][Speed 400][Pitch 40][Pitch 500]", "the nearest"},
        {R"(\Vol=65536\\RSpd=0\\Pro=7\)", "[Volume 65535][SpeedPercent 25][Melody 1]", "the nearest"},
        {R"(\Pau=\\Pau\\Pau=5x\\Pau= 5\\Pau=1.5\\Spd=fast\)", "", "not numbers"},
        {R"(\Mrk=1\\Mrk=2147483645\)", "[Bookmark 1][Bookmark 2147483645]", "bookmarks"},
        {R"(\Mrk=0\\Mrk=-1\\Mrk=2147483646\\Mrk=99999999999999999999\)", "", "none of these"},

        {R"(C:\Windows\x)", R"(C:\Windows\x)", "too many letters"},
        {R"(a\b\c)", R"(a\b\c)", "too few letters"},
        {R"(a\\b\\\\c)", R"(a\b\\c)", "two stand for one"},
        {R"(\ Rst \)", R"(\ Rst \)", "blanks are significant"},
        {R"(\Rst \Rst\)", R"(\Rst [Reset 0])", "blanks are significant"},
        {R"(\Pau5\)", R"(\Pau5\)", "no equals sign"},
        {R"(\Pau;5\)", R"(\Pau;5\)", "a semicolon serves one tag only"},
        {R"(a\Emp)", R"(a\Emp)", "not closed"},
        {R"(a\Pau=5 b)", R"(a\Pau=5 b)", "not closed"},
        {R"(a\Map="x\\"="y)", R"(a\Map="x\"="y)", "not closed: plain text to the end"},
        {R"(a\)", R"(a\)", "at the end"},
    };
    for (const auto& [text, expected, why] : kCases)
        EXPECT_EQ(expected, shape(text)) << text << ": " << why;
}

TEST(SpeechTags, knowWhetherTheLastStatementIsWanted) {
    const std::pair<std::string_view, Repetition> cases[] = {
        {"Hello", Repetition::None},
        {R"(\Lst\)", Repetition::Alone},
        {" \\LST\\\n", Repetition::Alone},
        {R"(\Lst\ again)", Repetition::Mixed},
        {R"(\Spd=90\\Lst\)", Repetition::Mixed},
        {R"(\Lst\\Lst\)", Repetition::Mixed},
    };
    for (const auto& [text, repetition] : cases)
        EXPECT_EQ(repetition, repetitionIn(parseSpeech(text))) << text;
}

void expectNothingMadeUp(std::string_view text) {
    std::size_t bytes = 0;
    for (const SpeechSegment& segment : parseSpeech(text))
        bytes += segment.spoken.size() + (segment.kind == SegmentKind::Text ? 0 : segment.shown.size());
    EXPECT_LE(bytes, text.size()) << text.substr(0, 40);
}

/// What looks to the end of the text at each backslash or word does not finish before the test program is
/// ended.
TEST(SpeechTags, takeLongHostileTexts) {
    for (const std::string_view piece :
         {R"(\)", R"(\\)", R"(\Map=)", R"(\Map=")", R"(\Com=\\)", R"(\Emp\)", "x", R"(\Map="\\)",
          R"(\Vce=""\\)", R"(\Pau=9)", "\"\\", "\xFF\\", R"(word \Emp\word\Mrk=1\ )"}) {
        std::string text;
        while (text.size() < 1'000'000)
            text += piece;
        expectNothingMadeUp(text);
        EXPECT_LE(planSpeech(parseSpeech(text), {}).shown.size(), text.size()) << piece;
    }
}

TEST(SpeechTags, makeNothingUp) {
    constexpr std::string_view kAlphabet = "\\\\\\\"\"=;: aEmpMap9";
    std::mt19937 random(7);
    for (int i = 0; i < 20'000; ++i) {
        std::string text;
        for (auto length = random() % 40; length > 0; --length)
            text += kAlphabet[random() % kAlphabet.size()];
        expectNothingMadeUp(text);
    }
}

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

int tenPerByte(std::string_view text) {
    return 10 * static_cast<int>(text.size());
}

Lines linesOf(std::string_view text, int width) {
    Lines lines;
    for (const TextLine line : breakLines(text, width, tenPerByte))
        lines.emplace_back(text.substr(line.begin, line.end - line.begin));
    return lines;
}

TEST(LineBreaker, breaksBetweenWords) {
    const struct {
        std::string_view text;
        int width;
        Lines lines;
        std::string_view why;
    } cases[] = {
        {"one two three", 70, {"one two", "three"}, "a line that is just full"},
        {"one two three", 69, {"one", "two", "three"}, "and one pixel less"},
        {"  one  ", 100, {"one"}, "without the blanks around"},
        {"a  b", 100, {"a  b"}, "with those between"},
        {"a\nb\r\nc\rd", 100, {"a", "b", "c", "d"}, "at line ends of every kind"},
        {"a\n\nb\n", 100, {"a", "", "b"}, "an empty line between, none at the end"},
        {"abcdefg", 30, {"abc", "def", "g"}, "a word too wide for a line"},
        {"x abcdefg y", 40, {"x", "abcd", "efg", "y"}, "which begins a line of its own"},
        {"ab\u200Bcd", 60, {"ab", "cd"}, "a zero-width space is a place to break"},
        {"\u00E4\u00F6", 10, {"\u00E4", "\u00F6"}, "never within a character, however wide"},
        {"", 100, {}, "nothing"},
    };
    for (const auto& [text, width, lines, why] : cases)
        EXPECT_EQ(lines, linesOf(text, width)) << why;
}

TEST(LineBreaker, takesAnyTextInLinearTime) {
    std::string mixed;
    while (mixed.size() < 300'000)
        mixed += "abc \xF0\x9F\x99\x82 de\n";
    const std::string texts[] = {std::string(300'000, 'x'), std::string(300'000, ' '),
                                 std::string(300'000, '\n'), std::string(300'000, '\xF0'), mixed};
    for (const std::string& text : texts)
        for (const int pixels : {0, 10}) {
            std::size_t measured = 0;
            const auto lines = breakLines(text, 320, [&](std::string_view piece) {
                measured += piece.size();
                return pixels * static_cast<int>(piece.size());
            });
            EXPECT_LT(measured, 40 * text.size()) << text[0] << pixels;
            for (std::size_t i = 1; i < lines.size(); ++i)
                ASSERT_TRUE(lines[i - 1].end <= lines[i].begin && lines[i].begin <= lines[i].end);
        }
}

TEST(BalloonPacing, showsWordsAsTheyAreSpokenOrAllAtOnce) {
    BalloonSettings growing;
    BalloonSettings fixed;
    fixed.sizeToText = false;
    fixed.lines = 3;
    BalloonSettings whole = fixed;
    whole.autoPace = false;
    whole.lines = 2;
    const struct {
        BalloonSettings settings;
        int mostLines;
        int height;
        std::size_t reached;
        Lines lines;
        std::string_view why;
    } cases[] = {
        {growing, 20, 4, 0, {}, "nothing yet, but room for all"},
        {growing, 20, 4, 7, {"one", "two"}, "two words"},
        {growing, 20, 4, 18, {"one", "two", "three", "four"}, "the whole"},
        {growing, 2, 2, 7, {"one", "two"}, "no higher than the screen allows"},
        {growing, 2, 2, 13, {"two", "three"}, "then it scrolls"},
        {fixed, 20, 3, 3, {"one"}, "a fixed height"},
        {fixed, 20, 3, 18, {"two", "three", "four"}, "scrolls, too"},
        {whole, 20, 2, 0, {"one", "two"}, "as much as there is room for"},
        {whole, 20, 2, 3, {"one", "two"}, "nothing changes while it is in sight"},
        {whole, 20, 2, 13, {"two", "three"}, "the word being spoken stays in sight"},
    };
    for (const auto& [settings, mostLines, height, reached, lines, why] : cases) {
        const BalloonPacing pacing("one two three four", settings, {50, mostLines}, tenPerByte);
        const BalloonPage page = pacing.page(reached);
        EXPECT_EQ(lines, page.lines) << why;
        EXPECT_EQ(height, page.height) << why;
        EXPECT_EQ(50, page.width) << why;
    }
}

TEST(BalloonPacing, hidesLaterWhenThereIsMoreToRead) {
    const std::pair<std::string, int> cases[] = {
        {"", 2'000}, {"Hello", 2'250}, {"\u00E4\u00F6", 2'100}, {std::string(1'000, 'x'), 6'000}};
    for (const auto& [text, ms] : cases)
        EXPECT_EQ(Milliseconds{ms}, BalloonPacing(text, {}, {100, 20}, tenPerByte).hideDelay()) << text;
}

TEST(MouthShapes, followTheSounds) {
    using enum Mouth;
    const struct {
        Mouth mouth;
        std::initializer_list<std::string_view> sounds;
        std::string_view why;
    } cases[] = {
        {Closed, {"m", "b", "f", "p", "v", "", "_", "_:"}, "lips together, and silence"},
        {OpenWide1, {"g", "ɡ", "l", "iə", "ɪə", "k", "h", "ɹ", "ŋ", "j", "iː", "i", "ɪ"}, "g, l, ear"},
        {OpenWide2, {"n", "d", "t", "s", "z", "θ", "ð", "ʃ", "tʃ", "dʒ"}, "n, d, t"},
        {OpenWide3, {"ʌ", "ɛ", "ɜː", "ə", "eɪ", "əʊ", "ɚ"}, "hut, head, hurt"},
        {OpenWide4, {"æ", "aʊ", "aɪ", "ɑː", "a"}, "hat, how"},
        {OpenMedium, {"ɔɪ", "ɒ", "ɔː"}, "ahoy, hot"},
        {OpenNarrow, {"uː", "oʊ", "ʊ", "w", "ʍ"}, "hoop, hope, w"},
        {OpenWide4, {"ˈa", "ˌɑ", "'a"}, "stress marks do not count"},
        {OpenWide1, {"\xFF", "Ж", "ʘ"}, "what is not known opens slightly"},
    };
    for (const auto& [mouth, sounds, why] : cases)
        for (const std::string_view sound : sounds)
            EXPECT_EQ(mouth, mouthFor(sound)) << sound << ": " << why;
    EXPECT_EQ(std::nullopt, mouthFor("(en)")) << "a change of language is no sound";
}

} // namespace
} // namespace brovin::character
