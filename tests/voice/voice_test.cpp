#include "text/language_ids.h"
#include "text/utf8.h"
#include "voice/mode_ids.h"
#include "voice/statement.h"
#include "voice/timbre.h"
#include "voice/utterance.h"
#include "voice/voice_choice.h"
#include "voice/writing.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

namespace brovin::voice {
namespace {

character::CharacterData characterOf(character::Gender gender, std::uint16_t hertz, std::uint32_t guid) {
    character::CharacterData data;
    data.guid.first = guid;
    data.voice.emplace();
    data.voice->traits = character::VoiceTraits{0x0409, "", gender, 30, ""};
    if (hertz > 0)
        data.voice->pitchHertz = hertz;
    return data;
}

TEST(VoiceChoice, followsTheLanguageWithItsCountry) {
    VoiceChoice voice{character::CharacterData{}, "en-us"};
    const std::string variant = "+" + voice.timbre().variant;
    constexpr std::pair<long, const char*> kCases[] = {
        {0x0401, "sem/ar"}, {0x0404, "sit/cmn"},    {0x0409, "gmw/en-US"}, {0x0809, "gmw/en"},
        {0x040C, "roa/fr"}, {0x080C, "roa/fr-BE"},  {0x0411, "jpx/ja"},    {0x0412, "ko"},
        {0x0414, "gmq/nb"}, {0x0416, "roa/pt-BR"},  {0x0816, "roa/pt"},    {0x041A, "zls/hr"},
        {0x0C1A, "zls/sr"}, {0x080A, "roa/es-419"}, {0x0C07, "gmw/de"}, // Austria has no voice of its own
        {0x0C09, "gmw/en"},                                             // nor has Australia
    };
    for (const auto& [id, name] : kCases) {
        EXPECT_TRUE(voice.setLanguageId(id)) << id;
        EXPECT_EQ(voice.voiceName(), name + variant) << id;
    }
    for (const long id : {0L, -1L, 0x10409L, 0x03FFL}) {
        EXPECT_FALSE(voice.setLanguageId(id)) << id;
        EXPECT_EQ(voice.voiceName(), "gmw/en" + variant) << "the language before stays";
    }
}

TEST(VoiceChoice, takesAModeOverTheLanguage) {
    VoiceChoice voice{character::CharacterData{}, "en-us"};
    ASSERT_TRUE(voice.setLanguageId(0x0415));
    const std::string own = voice.voiceName();
    constexpr std::pair<const char*, const char*> kCases[] = {
        // null: refused
        {"{CA141FD0-AC7F-11D1-97A3-006008273000}", "gmw/en-US+m1"},
        {"{ca141fd0-ac7f-11d1-97a3-006008273009}", "gmw/en-US+f2"},
        {"{CA141FD0-AC7F-11D1-97A3-00600827300A}", nullptr},
        {"{227A0E40-A92A-11d1-B17B-0020AFED142E}", "gmw/en+f1"},
        {"{3A1FB761-A92B-11d1-B17B-0020AFED142E}", "gmw/de+m1"},
        {"8AA08CA0-A1AE-11d3-9BC5-00A0C967A2D1", "roa/pt-BR+f1"},
        {"{8AA08CA0-A1AE-11d1-9BC5-00A0C967A2D1}", nullptr},
        {"English (America)", "gmw/en-US"},
        {"german+F3", "gmw/de+f3"},
        {"en-gb", "gmw/en"},
        {"zlw/pl+whisper", "zlw/pl+whisper"},
        {"de+nobody", nullptr},
        {"{CA141FD0-AC7F-11D1-97A3}", nullptr},
        {"../../etc/passwd", nullptr},
        {"+f1", nullptr},
    };
    std::string last = own;
    for (const auto& [id, name] : kCases) {
        EXPECT_EQ(voice.setTtsModeId(id), name != nullptr) << id;
        last = name != nullptr ? name : last;
        EXPECT_EQ(voice.voiceName(), last) << id;
    }
    EXPECT_TRUE(voice.setTtsModeId(""));
    EXPECT_EQ(voice.voiceName(), own);
}

TEST(VoiceChoice, givesEachCharacterAVoiceOfItsOwn) {
    using character::Gender;
    const Timbre wizard = ownTimbre(characterOf(Gender::Male, 0, 1));
    EXPECT_EQ(wizard, ownTimbre(characterOf(Gender::Male, 0, 1)));
    EXPECT_NE(wizard, ownTimbre(characterOf(Gender::Male, 0, 2)));
    EXPECT_EQ(wizard.variant.front(), 'm');
    EXPECT_EQ(ownTimbre(characterOf(Gender::Female, 0, 1)).variant.front(), 'f');

    const Timbre bird = ownTimbre(characterOf(Gender::Male, 260, 3));
    EXPECT_EQ(bird.variant.front(), 'f') << "no man's voice is as high";
    EXPECT_FALSE(bird.female);

    character::CharacterData named = characterOf(Gender::Male, 0, 1);
    named.voice->traits->style = "Monotone, voice UniRobot";
    EXPECT_EQ(ownTimbre(named).variant, "UniRobot");
    EXPECT_EQ(prosodyOf({}, ownTimbre(named)).range, 0);
    named.voice->traits->style = "calm,voice ../../etc/passwd, QUIET";
    EXPECT_EQ(ownTimbre(named).variant, wizard.variant) << "no name, so as without";
    EXPECT_LT(ownTimbre(named).range, wizard.range);
    EXPECT_LT(prosodyOf({}, ownTimbre(named)).volume, prosodyOf({}, wizard).volume);

    character::CharacterData child = characterOf(Gender::Female, 0, 1);
    child.voice->traits->ageYears = 8;
    EXPECT_GT(ownTimbre(child).ownHertz, ownTimbre(characterOf(Gender::Female, 0, 1)).ownHertz);
}

/// The texts one behind another, with "<" and ">" around each and "^" for the beginning of a command.
std::string shape(const std::vector<Utterance>& utterances) {
    std::string result;
    for (const Utterance& u : utterances) {
        result += '<';
        if (!u.bookmarksBefore.empty())
            result += "mark ";
        if (u.pause.count() > 0)
            result += "pause " + std::to_string(u.pause.count()) + ' ';
        if (u.whispered)
            result += "whisper ";
        for (const char c : u.text)
            result += c == '\x01' ? '^' : c;
        result += '>';
    }
    return result;
}

std::string shapeOf(std::string_view text) {
    return shape(makeUtterances(runsOf(text), Timbre{}));
}

TEST(VoiceChoice, readsForeignLettersByAVoiceThatHasThem) {
    VoiceChoice voice({}, "en-us");
    constexpr std::tuple<long, std::string_view, std::string_view> kCases[] = {
        {0x0409, "Good evening, and \"привет\" to you", "gmw/en-US"},
        {0x0409, "Привет, как твои дела? OK", "zle/ru"},
        {0x0422, "Привіт, як справи?", "zle/uk"},
        {0x0409, "Καλησπέρα σας", "grk/el"},
        {0x0419, "Good evening", "zle/ru"},
        {0x0409, "12:30 ...", "gmw/en-US"},
    };
    for (const auto& [language, text, reader] : kCases) {
        ASSERT_TRUE(voice.setLanguageId(language));
        const std::string speaks = voice.jobFor(runsOf(std::string(text))).voice;
        EXPECT_TRUE(speaks.starts_with(reader)) << text << ": " << speaks;
    }
    EXPECT_EQ("th", readerOf("สวัสดี", "en-us"));
}

TEST(Utterance, keepsASentenceInOnePiece) {
    constexpr struct {
        std::string_view text;
        const char* shape;
        const char* why;
    } kCases[] = {
        {"Good evening.", "<Good evening.>", "as it is"},
        {"a \\Mrk=7\\b", "<a b>", "a bookmark does not interrupt"},
        {"a \\Emp\\b c", "<a ^3Fb ^0Fc>", "nor does a change between two words"},
        {"\\Emp\\b c", "<^3Fb ^0Fc>", "not even at the beginning"},
        {"\\Spd=200\\a", "<a>", "what holds from the beginning needs no command"},
        {"a\\Spd=200\\b", "<a><b>", "within a word it does"},
        {"a \\Pau=500\\b", "<a ><pause 500 b>", "so does silence"},
        {"\\Mrk=1\\\\Pau=5\\\\Mrk=2\\", "<mark pause 5 >", "nothing else to say"},
        {"\\Chr=\"Whisper\"\\a \\Rst\\b", "<whisper a ><b>", "a whisper is another voice"},
        {" \n ", "", "nothing at all"},
        {"a\x02\x01"
         "9Pb\xFF",
         "<a  9Pb >", "control characters are not commands, stray bytes no letters"},
    };
    for (const auto& [text, expected, why] : kCases)
        EXPECT_EQ(shapeOf(text), expected) << why;
}

TEST(Utterance, knowsWhereItsWordsComeFrom) {
    const auto utterances = makeUtterances(runsOf("Żółw \\Spd=99\\😀 two"), Timbre{});
    ASSERT_EQ(utterances.size(), 1U);
    const Utterance& u = utterances.front();
    ASSERT_EQ(u.origins.size(), text::characterCount(u.text));
    // The blank before a word stands for it, and so does the command; 1000 is beyond the end.
    for (const auto& [character, byte] : {std::pair{0, 0}, {4, 8}, {5, 8}, {9, 8}, {10, 13}, {1000, 15}})
        EXPECT_EQ(u.originOf(static_cast<std::size_t>(character)), static_cast<std::size_t>(byte))
            << character;
}

TEST(Utterance, isCutWhereItIsLong) {
    std::string sentences;
    for (int i = 0; i < 500; ++i)
        sentences += "This is a sentence. ";
    const auto cut = makeUtterances(runsOf(sentences), Timbre{});
    EXPECT_GT(cut.size(), 20U);
    for (const Utterance& u : cut) {
        EXPECT_EQ(u.text.substr(0, 4), "This");
        EXPECT_LT(u.text.size(), 440U);
    }
    const auto blocks = makeUtterances(runsOf(std::string(10'000, 'a')), Timbre{});
    EXPECT_EQ(blocks.size(), 3U);
}

TEST(Utterance, carriesTheStyle) {
    const Timbre timbre{"m1", 100, 100, 50, 160, false};
    const auto first = [&](std::string_view text) {
        return makeUtterances(runsOf(text), timbre).at(0).prosody;
    };
    EXPECT_EQ(first("a").rate, 160);
    EXPECT_EQ(first("a").pitch, 50);
    EXPECT_EQ(first("a").volume, 100);
    EXPECT_EQ(first("\\Spd=50\\a").rate, 80) << "the slowest that there is";
    EXPECT_EQ(first("\\RSpd=200\\a").rate, 320);
    EXPECT_EQ(first("\\Pit=128\\a").pitch, 75);
    EXPECT_EQ(first("\\Pit=400\\a").pitch, 99);
    EXPECT_EQ(first("\\RPit=50\\a").pitch, 0);
    EXPECT_EQ(first("\\Vol=0\\a").volume, 0);
    EXPECT_EQ(first("\\Vol=1\\a").volume, 1) << "not silent";
    EXPECT_EQ(first("\\Chr=\"Monotone\"\\a").range, 0);
    EXPECT_EQ(first("\\Pro=0\\a").range, 0);
}

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
