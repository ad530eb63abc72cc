#include "character/stage/speech_tags.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace brovin::character {
namespace {

using enum SegmentKind;
using Segments = std::vector<SpeechSegment>;

SpeechSegment text(const std::string& words) {
    return {Text, 0, words, words};
}

SpeechSegment tag(SegmentKind kind, std::int32_t number = 0) {
    return {kind, number, {}, {}};
}

SpeechSegment substitute(const std::string& spoken, const std::string& shown) {
    return {Substitute, 0, spoken, shown};
}

void expectAll(const std::vector<std::tuple<std::string_view, Segments, std::string_view>>& cases) {
    for (const auto& [input, segments, why] : cases)
        EXPECT_TRUE(segments == parseSpeech(input)) << input << ": " << why;
}

TEST(SpeechTags, areTakenOutOfTheText) {
    expectAll({
        {"", {}, "nothing"},
        {"Good evening", {text("Good evening")}, "no tags"},
        {R"(a\Pau=500\b)", {text("a"), tag(Pause, 500), text("b")}, "between words"},
        {R"(\pAU=500\)", {tag(Pause, 500)}, "whatever the case"},
        {R"(\Emp\\Dem\\Rst\\Lst\)",
         {tag(Emphasize), tag(Deemphasize), tag(Reset), tag(Repeat)},
         "side by side"},
        {R"(\Spd=120\\Pit=90\\Vol=0\)", {tag(Speed, 120), tag(Pitch, 90), tag(Volume, 0)}, "side by side"},
        {R"(\RmS=1\\RmW=1\\Pro=0\\RSpd=50\\RPit=200\)",
         {tag(Spelling, 1), tag(WordPauses, 1), tag(Melody, 0), tag(SpeedPercent, 50),
          tag(PitchPercent, 200)},
         "four letters too"},
        {R"(\Chr="Whisper"\\Chr=Monotone\\Chr=Angry\\Chr="normal"\)",
         {tag(Tone, 2), tag(Tone, 1), tag(Tone, 0), tag(Tone, 0)},
         "quotation marks are optional, unknown tones normal"},
        {R"(\Ctx="E-mail"\x\Com=a secret\y\Vce=Gender="male"\z)", {text("xyz")}, "of no concern"},
        {R"(\Eng;{12}:go\x\Eng:go\y\Prn=tomato=t m\z)", {text("xyz")}, "of no concern"},
        {R"(\Foo\x\Foos=5\y)", {text("xy")}, "unknown"},
    });
}

TEST(SpeechTags, replaceWhatIsSpoken) {
    expectAll({
        {R"(\Map="hi"="Hello there"\!)", {substitute("hi", "Hello there"), text("!")}, "the usual form"},
        {R"(\Map=""="shown"\\Map="said"=""\)",
         {substitute("", "shown"), substitute("said", "")},
         "empty halves"},
        {R"(\Map="a\\b"="c\\"\)", {substitute(R"(a\b)", R"(c\)")}, "a backslash is written twice"},
        {R"(\Map=a=b\x)", {text("x")}, "quotation marks are needed"},
        {R"(\Map="a"\x)", {text("x")}, "the other half is missing"},
        {R"(\Map="a"="b"c\x)", {text("x")}, "something follows"},
        {R"(\Map="a"="b\x)", {text("x")}, "the mark is missing"},
    });
}

TEST(SpeechTags, areHeldToTheirRanges) {
    expectAll({
        {R"(\Pau=99999999999999999999999\)", {tag(Pause, 60'000)}, "more than any number can hold"},
        {R"(\Pau=-99999999999999999999999\)", {tag(Pause, 0)}, "less than any"},
        {R"(\Spd=0\\Spd=401\\Pit=1\\Pit=9999\\Vol=65536\\RSpd=0\\Pro=7\)",
         {tag(Speed, 50), tag(Speed, 400), tag(Pitch, 40), tag(Pitch, 500), tag(Volume, 65'535),
          tag(SpeedPercent, 25), tag(Melody, 1)},
         "the nearest allowed"},
        {R"(\Pau=\\Pau\\Pau=5x\\Pau= 5\\Pau=1.5\\Spd=fast\)", {}, "not numbers"},
        {R"(\Mrk=1\\Mrk=2147483645\)", {tag(Bookmark, 1), tag(Bookmark, 2'147'483'645)}, "bookmarks"},
        {R"(\Mrk=0\\Mrk=-1\\Mrk=2147483646\\Mrk=2147483647\\Mrk=99999999999999999999\)", {}, "none of these"},
    });
}

TEST(SpeechTags, leaveBackslashesAloneThatBeginNone) {
    expectAll({
        {R"(C:\Windows\x)", {text(R"(C:\Windows\x)")}, "too many letters"},
        {R"(a\b\c)", {text(R"(a\b\c)")}, "too few letters"},
        {R"(a\\b\\\\c)", {text(R"(a\b\\c)")}, "two stand for one"},
        {R"(\ Rst \)", {text(R"(\ Rst \)")}, "blanks are significant"},
        {R"(\Rst \Rst\)", {text(R"(\Rst )"), tag(Reset)}, "blanks are significant"},
        {R"(\Pau5\)", {text(R"(\Pau5\)")}, "no equals sign"},
        {R"(\Pau;5\)", {text(R"(\Pau;5\)")}, "a semicolon serves one tag only"},
        {R"(a\Emp)", {text(R"(a\Emp)")}, "not closed"},
        {R"(a\Pau=5 b)", {text(R"(a\Pau=5 b)")}, "not closed"},
        {R"(a\Map="x\\"="y)", {text(R"(a\Map="x\"="y)")}, "not closed: plain text to the end"},
        {R"(a\)", {text(R"(a\)")}, "at the end"},
        {R"(\)", {text(R"(\)")}, "alone"},
    });
}

TEST(SpeechTags, knowWhetherTheLastStatementIsWanted) {
    const struct {
        std::string_view text;
        Repetition repetition;
    } cases[] = {
        {"Hello", Repetition::None},
        {R"(\Lst\)", Repetition::Alone},
        {" \\LST\\\n", Repetition::Alone},
        {R"(\Lst\ again)", Repetition::Mixed},
        {R"(\Spd=90\\Lst\)", Repetition::Mixed},
        {R"(\Lst\\Lst\)", Repetition::Mixed},
        {"", Repetition::None},
    };
    for (const auto& [text, repetition] : cases)
        EXPECT_EQ(repetition, repetitionIn(parseSpeech(text))) << text;
}

/// A parser that looks to the end of the text at each backslash does not finish before the test program is
/// ended.
TEST(SpeechTags, takeLongHostileTexts) {
    for (const std::string_view piece : {R"(\)", R"(\\)", R"(\Map=)", R"(\Map=")", R"(\Com=\\)", R"(\Emp\)",
                                         "x", R"(\Map="\\)", R"(\Vce=""\\)", R"(\Pau=9)", "\"\\", "\xFF\\"}) {
        std::string text;
        while (text.size() < 1'000'000)
            text += piece;
        std::size_t bytes = 0;
        for (const SpeechSegment& segment : parseSpeech(text))
            bytes += segment.spoken.size();
        EXPECT_LE(bytes, text.size()) << piece;
    }
}

TEST(SpeechTags, makeNothingUp) {
    constexpr std::string_view kAlphabet = "\\\\\\\"\"=;: aEmpMap9";
    std::mt19937 random(7);
    for (int i = 0; i < 20'000; ++i) {
        std::string text;
        for (auto length = random() % 40; length > 0; --length)
            text += kAlphabet[random() % kAlphabet.size()];
        std::size_t bytes = 0;
        for (const SpeechSegment& segment : parseSpeech(text))
            bytes +=
                segment.kind == Text ? segment.spoken.size() : segment.spoken.size() + segment.shown.size();
        EXPECT_LE(bytes, text.size()) << text;
    }
}

} // namespace
} // namespace brovin::character
