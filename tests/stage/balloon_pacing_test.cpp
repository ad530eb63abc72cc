#include "character/stage/balloon_pacing.h"

#include "character/stage/speech_plan.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

namespace brovin::character {
namespace {

using Lines = std::vector<std::string>;

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

} // namespace
} // namespace brovin::character
