#include "posix/scratch_folder.h"
#include "posix/sqlite_history.h"
#include "text/date_text.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sqlite3.h>
#include <unistd.h>

namespace brovin::posix {
namespace {

using platform::DeletedShare;
using platform::Score;
using platform::ScoreBy;

platform::DateTime at(const char* day) {
    return *text::dateOf(day);
}

struct HistoryTest : testing::Test {
    ScratchFolder scratch;
    std::string file = scratch.path("data/history.sqlite");
    SqliteHistory history{file};

    void add(const char* day, const DeletedShare& share) {
        const auto added = history.append(at(day), std::span(&share, 1));
        ASSERT_TRUE(added) << added.failure().reason;
    }
    std::vector<Score> bars(ScoreBy by, std::size_t most = 100) {
        const auto found = history.score(by, most);
        EXPECT_TRUE(found);
        return found ? *found : std::vector<Score>();
    }
};

TEST_F(HistoryTest, addsUpByWeekMonthNameAndFolder) {
    add("2026-11-01", {"thumbs.db", "/srv/a", 2, 8}); // a Sunday
    add("2026-11-02", {"thumbs.db", "/srv/a", 1, 4}); // a Monday
    add("2026-11-02", {"thumbs.db", "/srv/a", 1, 4});
    add("2026-11-08", {".ds_store", "/srv/b; DROP TABLE share", 9, 40});
    EXPECT_EQ(bars(ScoreBy::Week), (std::vector<Score>{{"2026-10-26", 2, 8}, {"2026-11-02", 11, 48}}));
    EXPECT_EQ(bars(ScoreBy::Month), (std::vector<Score>{{"2026-11-01", 13, 56}}));
    EXPECT_EQ(bars(ScoreBy::Name), (std::vector<Score>{{".ds_store", 9, 40}, {"thumbs.db", 4, 16}}));
    EXPECT_EQ(bars(ScoreBy::Folder, 1), (std::vector<Score>{{"/srv/b; DROP TABLE share", 9, 40}}));
    EXPECT_EQ(scratch.mode("data/history.sqlite"), 0600U);
}

TEST_F(HistoryTest, forgetsTheOldestDays) {
    SqliteHistory small(file, {.days = 10, .rows = 3});
    for (const char* day : {"2026-01-01", "2026-01-10", "2026-01-12"})
        for (const char* name : {"a", "b"}) {
            const DeletedShare share{name, "/", 1, 4};
            ASSERT_TRUE(small.append(at(day), std::span(&share, 1)));
        }
    // The first day is too long ago, and with the second there would be four rows.
    EXPECT_EQ(*small.score(ScoreBy::Week, 9), (std::vector<Score>{{"2026-01-12", 2, 8}}));
}

TEST_F(HistoryTest, movesADamagedFileAsideAndBeginsAnew) {
    scratch.addText("data/history.sqlite",
                    "this is no history, it only stands in its place " + std::string(4096, 'x'));
    add("2026-11-02", {"thumbs.db", "/srv/a", 1, 4});
    EXPECT_EQ(history.takeDamaged(), file + ".damaged");
    EXPECT_EQ(history.takeDamaged(), "");
    EXPECT_EQ(bars(ScoreBy::Name).size(), 1U);
    EXPECT_TRUE(std::filesystem::file_size(file + ".damaged") > 4096U);

    // A page of a real one that is overwritten: known when the history is next opened.
    const int opened = ::open(file.c_str(), O_WRONLY | O_CLOEXEC);
    const std::string rubbish(1000, '\xee');
    ASSERT_GT(::pwrite(opened, rubbish.data(), rubbish.size(), 4096), 0);
    ::close(opened);
    add("2026-11-03", {"thumbs.db", "/srv/a", 5, 20});
    EXPECT_NE(history.takeDamaged(), "");
    EXPECT_EQ(bars(ScoreBy::Name), (std::vector<Score>{{"thumbs.db", 5, 20}}));
}

TEST_F(HistoryTest, leavesWhatSomebodyElseHolds) {
    add("2026-11-02", {"thumbs.db", "/srv/a", 1, 4});
    sqlite3* other = nullptr;
    ASSERT_EQ(SQLITE_OK, sqlite3_open(file.c_str(), &other));
    ASSERT_EQ(SQLITE_OK, sqlite3_exec(other, "BEGIN EXCLUSIVE", nullptr, nullptr, nullptr));
    const DeletedShare share{"thumbs.db", "/srv/a", 1, 4};
    EXPECT_FALSE(history.append(at("2026-11-03"), std::span(&share, 1)));
    EXPECT_EQ("", history.takeDamaged()) << "it is sound";
    sqlite3_close(other);
    EXPECT_EQ(bars(ScoreBy::Name), (std::vector<Score>{{"thumbs.db", 1, 4}}));
}

TEST_F(HistoryTest, tellsWhatTheDiskRefuses) {
    scratch.addText("file", "");
    SqliteHistory nowhere(scratch.path("file/below/history.sqlite"));
    EXPECT_FALSE(nowhere.append(at("2026-11-02"), {}));
    EXPECT_FALSE(nowhere.score(ScoreBy::Name, 1));
}

} // namespace
} // namespace brovin::posix
