#include "cleaner/log_search.h"
#include "cleaner/score.h"
#include "fakes/fake_machine.h"

#include <gtest/gtest.h>

namespace brovin::cleaner {
namespace {

using platform::Score;
using platform::ScoreBy;

TEST(ScoreBook, fillsTheTimesWithoutADeletionAndWritesThemDown) {
    fakes::FakeHistory history;
    const fakes::FakeRegional regional;
    const language::MessageTable messages;
    ScoreBook book({history, messages, regional});

    history.bars = {{"2025-12-22", 3, 12}, {"2026-01-12", 1, 4}};
    EXPECT_EQ((std::vector<Score>{
                  {"2025-12-22", 3, 12}, {"2025-12-29", 0, 0}, {"2026-01-05", 0, 0}, {"2026-01-12", 1, 4}}),
              *book.bars(ScoreBy::Week));
    EXPECT_EQ("22/12/2025", book.shownLabel(ScoreBy::Week, "2025-12-22"));
    history.bars = {{"2025-11-01", 3, 12}, {"2026-02-01", 1, 4}, {"nonsense", 1, 4}};
    const auto months = *book.bars(ScoreBy::Month);
    ASSERT_EQ(5U, months.size());
    EXPECT_EQ((Score{"2026-01-01", 0, 0}), months[2]);
    EXPECT_EQ("January 2026", book.shownLabel(ScoreBy::Month, months[2].label));
    EXPECT_EQ("2026-01-01", book.shownLabel(ScoreBy::Name, "2026-01-01")) << "a file may be named so";

    history.bars = {{"a \"b\", c", 1234, 5}};
    EXPECT_EQ("\"Name\",\"Items\",\"KB\"\r\n\"a \"\"b\"\", c\",1234,5\r\n",
              book.csv(ScoreBy::Name, *book.bars(ScoreBy::Name)));
    history.damaged = "/there.damaged";
    EXPECT_NE(std::string::npos, book.trouble().find("/there.damaged"));
    EXPECT_EQ("", book.trouble());
}

TEST(LogSearch, findsTheSameWhateverPiecesTheLogComesIn) {
    const std::string log =
        "Scan begun\r\nDeleted file /a/Thumbs.db\r\n\r\nthumbs thumbs THUMBS\r\n\xC3\x9C x\nlast thumb";
    const std::pair<const char*, std::deque<std::uint64_t>> kCases[] = {
        {"", {0, 12, 39, 41, 63, 68}}, {"thumb", {12, 41, 68}}, {"THUMBS", {12, 41}}, {"scan", {0}},
        {"\xC3\x9C X", {63}},          {"a/t", {12}},           {"missing", {}},
    };
    for (const auto& [wanted, lines] : kCases)
        for (std::size_t size = 1; size <= log.size(); ++size) {
            const fakes::FakeLetters letters;
            LogSearch search(wanted, letters);
            for (std::size_t at = 0; at < log.size(); at += size)
                search.take(std::string_view(log).substr(at, size));
            search.finish();
            ASSERT_EQ(lines, search.lines()) << wanted << " in pieces of " << size;
            ASSERT_EQ(lines.size(), search.found());
        }
}

} // namespace
} // namespace brovin::cleaner
