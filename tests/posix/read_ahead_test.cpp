#include "posix/open_folder.h"
#include "posix/outcome.h"
#include "posix/posix_file_system.h"
#include "posix/read_ahead.h"
#include "posix/scratch_folder.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <signal.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <chrono>
#include <functional>
#include <new>
#include <thread>

namespace brovin::posix {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;
using platform::EntryKind;
using platform::Force;

/// Whether this process holds something open whose path ends like that.
bool holdsOpen(const std::string& ending) {
    for (const auto& entry : fs::directory_iterator("/proc/self/fd")) {
        std::error_code closedMeanwhile;
        if (fs::read_symlink(entry.path(), closedMeanwhile).string().ends_with(ending))
            return true;
    }
    return false;
}

bool comesTrue(const std::function<bool()>& condition) {
    for (int tries = 0; tries < 5'000 && !condition(); ++tries)
        std::this_thread::sleep_for(1ms);
    return condition();
}

class ReadAheadTest : public testing::Test {
protected:
    std::unique_ptr<platform::FolderWalk> openWatched() {
        return *PosixFileSystem(ReadingAhead::Always).open(disk_.path("watched"));
    }

    ScratchFolder disk_;
};

// The threads stop where the disk is fast: nobody would read then what the walk waits for.
TEST_F(ReadAheadTest, waitsForNothingOnADiskThatGetsFastMeanwhile) {
    constexpr int kRounds = 200;
    std::vector<std::string> names;
    for (unsigned i = 0; i < ReadAhead::kMostThreads; ++i) {
        names.push_back("large" + std::to_string(i));
        for (int file = 0; file < 500; ++file)
            disk_.addFile("watched/" + names.back() + '/' + std::to_string(file));
    }
    disk_.addFolder("watched/" + names.emplace_back("last"));
    const FolderHandle watched = FolderChain::held(*openFolder(disk_.path("watched")));
    for (int round = 0; round < kRounds; ++round) {
        DiskPace pace(ReadingAhead::WhereSlow);
        pace.note(60us);
        for (int i = 0; i < 15; ++i) // hardly slow any more: the first folder that is read makes it fast
            pace.note(18us);
        const auto ahead = std::make_shared<ReadAhead>(pace);
        ahead->plan(watched, 0, names);
        std::this_thread::sleep_for(
            std::chrono::microseconds(2 * round)); // until all threads have one in hand
        const auto end = std::chrono::steady_clock::now() + 2s;
        const auto taken =
            ahead->take(0, names.back(), [end] { return std::chrono::steady_clock::now() < end; });
        ahead->stop();
        ASSERT_TRUE(taken) << "round " << round;
    }
}

TEST_F(ReadAheadTest, deletesNothingInWhatWasMovedAwayBeforeTheWalkCameToIt) {
    const auto move = [this](const char* folder) {
        fs::rename(disk_.path(folder), disk_.path("elsewhere/moved"));
    };
    const struct {
        const char* what;
        std::function<void()> happens;
    } attacks[] = {
        {"moved", [&] { move("watched/outer/inner"); }},
        {"a link in its place",
         [&] {
             move("watched/outer/inner");
             disk_.addLink("watched/outer/inner", "../../elsewhere/moved");
         }},
        {"another folder in its place",
         [&] {
             move("watched/outer/inner");
             disk_.addFile("watched/outer/inner/mine");
         }},
        {"the folder above", [&] { move("watched/outer"); }},
    };
    for (const auto& [what, happens] : attacks) {
        for (int step = 0; step < 3; ++step) {
            SCOPED_TRACE(std::string(what) + ", step " + std::to_string(step));
            disk_.addFile("watched/outer/inner/mine");
            disk_.addFile("watched/outer/inner/tree/mine");
            disk_.addFolder("elsewhere");
            const auto walk = openWatched();
            ASSERT_TRUE(walk->list());
            ASSERT_TRUE(comesTrue([] { return holdsOpen("/outer/inner/tree"); }));
            if (step == 0)
                happens();
            ASSERT_TRUE(walk->enter("outer"));
            if (step == 1)
                happens();
            ASSERT_TRUE(walk->enter("inner"));
            if (step == 2)
                happens();
            const auto before = disk_.tree();
            EXPECT_EQ(ESTALE, errorOf(walk->deleteFile("mine", Force::Yes)));
            EXPECT_EQ(ESTALE, errorOf(walk->deleteFolder("tree", Force::Yes)));
            EXPECT_EQ(before, disk_.tree());
            fs::remove_all(disk_.path("watched"));
            fs::remove_all(disk_.path("elsewhere"));
        }
    }
}

TEST_F(ReadAheadTest, remembersWhatWasMovedAboveTheFoldersThatItKeepsOpen) {
    constexpr int kLevels = 200; // more than a walk holds open
    std::string deep = "watched";
    for (int level = 0; level < kLevels; ++level)
        deep += "/d";
    disk_.addFile(deep + "/mine");
    const auto walk = openWatched();
    ASSERT_TRUE(walk->list());
    ASSERT_TRUE(comesTrue([&] { return holdsOpen(deep); }));
    fs::rename(disk_.path("watched/d/d/d"), disk_.path("moved"));
    for (int level = 0; level < kLevels; ++level)
        ASSERT_TRUE(walk->enter("d")) << level;
    EXPECT_EQ(ESTALE, errorOf(walk->deleteFile("mine", Force::Yes)));
}

TEST_F(ReadAheadTest, takesNoLinkAheadAndFindsOutInPlace) {
    disk_.addFile("elsewhere/kept");
    disk_.addFolder("watched/first");
    disk_.addFolder("watched/swapped");
    const auto walk = openWatched();
    ASSERT_TRUE(walk->list());
    ASSERT_TRUE(comesTrue([] { return holdsOpen("/swapped"); }));
    ASSERT_TRUE(walk->list()) << "which begins anew";
    fs::remove(disk_.path("watched/swapped"));
    disk_.addLink("watched/swapped", "../elsewhere");
    ASSERT_TRUE(walk->list());
    EXPECT_EQ(ENOTDIR, errorOf(walk->enter("swapped")));
    EXPECT_FALSE(holdsOpen("/elsewhere"));
}

TEST_F(ReadAheadTest, letsGoOfWhatIsToBeDeleted) {
    disk_.addFile("watched/gone/below/file");
    const auto walk = openWatched();
    ASSERT_TRUE(walk->list());
    ASSERT_TRUE(comesTrue([] { return holdsOpen("/gone/below"); }));
    EXPECT_TRUE(walk->deleteFolder("gone", Force::No));
    EXPECT_FALSE(holdsOpen(" (deleted)")) << "some file servers would have refused";
}

TEST_F(ReadAheadTest, listsWhatIsThereWhenItIsAskedAgain) {
    disk_.addFolder("watched/sub");
    const auto walk = openWatched();
    ASSERT_TRUE(walk->list());
    ASSERT_TRUE(comesTrue([] { return holdsOpen("/sub"); }));
    ASSERT_TRUE(walk->enter("sub"));
    disk_.addFile("watched/sub/late");
    EXPECT_EQ(0U, walk->list()->size()) << "as it was read";
    EXPECT_EQ(1U, walk->list()->size());
}

/// How long the race below is run. A second is for every day.
std::chrono::seconds raceTime() {
    const char* const seconds = std::getenv("BROVIN_RACE_SECONDS");
    return std::chrono::seconds(seconds == nullptr ? 1 : std::atoi(seconds));
}

/// Sweeps as the program does, but goes into every folder. Returns how many things it deleted.
int sweep(platform::FolderWalk& walk) {
    int deleted = 0;
    std::vector<std::string> folders;
    for (auto piece = walk.list(); piece && !piece->empty(); piece = walk.listMore()) {
        for (const platform::Entry& entry : *piece) {
            if (entry.name.starts_with("gone"))
                deleted += entry.kind == EntryKind::Folder
                               ? bool(walk.deleteFolder(entry.trueName, Force::Yes))
                               : bool(walk.deleteFile(entry.trueName, Force::Yes));
            else if (entry.kind == EntryKind::Folder)
                folders.emplace_back(entry.trueName);
        }
    }
    for (const std::string& folder : folders) {
        if (!walk.enter(folder))
            continue;
        deleted += sweep(walk);
        if (!walk.leave())
            return deleted;
    }
    return deleted;
}

/// Swaps folders and links in each other's place, and moves a deep folder out of the tree and back.
[[noreturn]] void attack(const ScratchFolder& disk, std::atomic<long>& flips) {
    const std::string inside = disk.path("watched/deep/d/d/d");
    const std::string outside = disk.path("elsewhere/deep");
    for (;; ++flips) {
        for (const char* name : {"a", "b"}) {
            ::renameat2(AT_FDCWD, disk.path(std::string("watched/") + name).c_str(), AT_FDCWD,
                        disk.path(std::string("decoys/") + name).c_str(), RENAME_EXCHANGE);
        }
        ::rename(inside.c_str(), outside.c_str());
        ::rename(outside.c_str(), inside.c_str());
    }
}

TEST_F(ReadAheadTest, reachesNothingElsewhereWhateverASecondProcessMoves) {
    std::string deep = "watched/deep";
    for (int level = 0; level < 50; ++level)
        deep += "/d";
    disk_.addFolder(deep);
    for (const char* kept :
         {"elsewhere/gone", "elsewhere/sub/gone", "elsewhere/gone tree/kept", "elsewhere/d/gone"})
        disk_.addFile(kept);
    disk_.addFolder("decoys");
    for (const char* name : {"a", "b"}) {
        disk_.addFolder(std::string("watched/") + name + "/sub");
        disk_.addLink(std::string("decoys/") + name, "../elsewhere");
    }
    void* const memory =
        ::mmap(nullptr, sizeof(std::atomic<long>), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    ASSERT_NE(MAP_FAILED, memory);
    auto& flips = *new (memory) std::atomic<long>(0);
    const pid_t attacker = ::fork();
    ASSERT_NE(-1, attacker);
    if (attacker == 0)
        attack(disk_, flips);
    int deleted = 0;
    int rounds = 0;
    for (const auto end = std::chrono::steady_clock::now() + raceTime();
         std::chrono::steady_clock::now() < end; ++rounds) {
        for (const char* name : {"a", "b"}) {
            std::error_code lostTheRace;
            fs::create_directories(disk_.path(std::string("watched/") + name + "/sub/gone"), lostTheRace);
        }
        const auto walk = openWatched();
        deleted += sweep(*walk);
    }
    ::kill(attacker, SIGKILL);
    ::waitpid(attacker, nullptr, 0);
    for (const char* kept :
         {"elsewhere/gone", "elsewhere/sub/gone", "elsewhere/gone tree/kept", "elsewhere/d/gone"})
        EXPECT_TRUE(fs::exists(disk_.path(kept))) << kept;
    EXPECT_GT(deleted, 0);
    EXPECT_GT(flips.load(), rounds) << "the second process was to be the faster one";
    RecordProperty("deleted", deleted);
    std::printf("%d sweeps, %ld flips, %d deletions\n", rounds, flips.load(), deleted);
    ::munmap(memory, sizeof(std::atomic<long>));
}

} // namespace
} // namespace brovin::posix
