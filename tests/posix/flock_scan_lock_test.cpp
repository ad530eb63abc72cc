#include "posix/flock_scan_lock.h"
#include "posix/scratch_folder.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

namespace brovin::posix {
namespace {

/// Another copy of the program, which holds the lock until it is killed.
class OtherCopy {
public:
    explicit OtherCopy(const std::string& folder) {
        int ready[2] = {};
        EXPECT_EQ(0, ::pipe(ready));
        process_ = ::fork();
        if (process_ == 0) {
            const auto hold = FlockScanLock(folder).tryHold();
            if (::write(ready[1], hold ? "y" : "n", 1) == 1)
                ::pause();
            ::_exit(0);
        }
        EXPECT_EQ(1, ::read(ready[0], &answer_, 1));
        ::close(ready[0]);
        ::close(ready[1]);
    }
    ~OtherCopy() {
        ::kill(process_, SIGKILL);
        ::waitpid(process_, nullptr, 0);
    }
    OtherCopy(const OtherCopy&) = delete;
    OtherCopy& operator=(const OtherCopy&) = delete;

    [[nodiscard]] bool holds() const { return answer_ == 'y'; }

private:
    pid_t process_ = -1;
    char answer_ = 'n';
};

TEST(FlockScanLock, isHeldByOneCopyAtATime) {
    const ScratchFolder disk;
    FlockScanLock lock(disk.path());
    {
        const auto hold = lock.tryHold();
        EXPECT_TRUE(hold);
        EXPECT_FALSE(lock.tryHold()) << "the same copy counts too";
        EXPECT_FALSE(OtherCopy(disk.path()).holds());
    }
    EXPECT_TRUE(lock.tryHold());
    EXPECT_TRUE(disk.tree().empty()) << "no lock file";
}

TEST(FlockScanLock, endsWithItsHolder) {
    const ScratchFolder disk;
    FlockScanLock lock(disk.path());
    {
        const OtherCopy other(disk.path());
        ASSERT_TRUE(other.holds());
        EXPECT_FALSE(lock.tryHold());
    }
    EXPECT_TRUE(lock.tryHold());
}

TEST(FlockScanLock, isNotPassedOnToOtherPrograms) {
    const ScratchFolder disk;
    const auto hold = FlockScanLock(disk.path()).tryHold();
    ASSERT_TRUE(hold);
    const auto locked = std::filesystem::canonical(disk.path());
    int found = 0;
    for (const auto& entry : std::filesystem::directory_iterator("/proc/self/fd")) {
        std::error_code closed;
        if (std::filesystem::read_symlink(entry.path(), closed) == locked) {
            ++found;
            EXPECT_EQ(FD_CLOEXEC, ::fcntl(std::stoi(entry.path().filename()), F_GETFD) & FD_CLOEXEC);
        }
    }
    EXPECT_EQ(1, found);
}

TEST(FlockScanLock, makesItsFolderForTheUserAlone) {
    const ScratchFolder disk;
    EXPECT_TRUE(FlockScanLock(disk.path("a/b")).tryHold());
    for (const char* made : {"a", "a/b"})
        EXPECT_EQ(0700U, disk.mode(made)) << made;
}

TEST(FlockScanLock, locksTheNearestFolderAboveWhereItsOwnCannotBe) {
    const ScratchFolder disk;
    disk.addFile("file");
    for (const char* impossible : {"file/sub/", "file"}) {
        FlockScanLock lock(disk.path(impossible));
        const auto hold = lock.tryHold();
        EXPECT_TRUE(hold) << impossible;
        EXPECT_FALSE(FlockScanLock(disk.path()).tryHold()) << impossible << ": the folder above is locked";
        EXPECT_FALSE(lock.tryHold()) << impossible;
    }
}

} // namespace
} // namespace brovin::posix
