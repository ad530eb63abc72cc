#include "character/stage/speech_plan.h"
#include "character/stage/speech_tags.h"

#include <gtest/gtest.h>

#include <array>
#include <random>
#include <string>
#include <string_view>

namespace brovin::character {
namespace {

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
            shape += "{" + spoken + "|" + shown + "}";
        else
            shape += std::string("[") + kNames.at(static_cast<std::size_t>(kind)) + " " +
                     std::to_string(number) + "]";
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

} // namespace
} // namespace brovin::character
