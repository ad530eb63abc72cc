#include "voice/utterance.h"

#include "text/utf8.h"
#include "voice/statement.h"

#include <gtest/gtest.h>

#include <string>

namespace brovin::voice {
namespace {

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

} // namespace
} // namespace brovin::voice
