#include "posix/flock_scan_lock.h"
#include "posix/scratch_folder.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
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
            const char answer = hold ? 'y' : 'n';
            if (::write(ready[1], &answer, 1) == 1)
                ::pause();
            ::_exit(0);
        }
        char answer = 'n';
        EXPECT_EQ(1, ::read(ready[0], &answer, 1));
        holds_ = answer == 'y';
        ::close(ready[0]);
        ::close(ready[1]);
    }
    ~OtherCopy() { kill(); }
    OtherCopy(const OtherCopy&) = delete;
    OtherCopy& operator=(const OtherCopy&) = delete;

    [[nodiscard]] bool holds() const { return holds_; }

    void kill() {
        if (process_ > 0) {
            ::kill(process_, SIGKILL);
            ::waitpid(process_, nullptr, 0);
        }
        process_ = -1;
    }

private:
    pid_t process_ = -1;
    bool holds_ = false;
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
    OtherCopy other(disk.path());
    ASSERT_TRUE(other.holds());
    FlockScanLock lock(disk.path());
    EXPECT_FALSE(lock.tryHold());
    other.kill();
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
    struct stat facts {};
    for (const char* made : {"a", "a/b"}) {
        ASSERT_EQ(0, ::stat(disk.path(made).c_str(), &facts));
        EXPECT_EQ(0700U, facts.st_mode & 0777U) << made;
    }
}

TEST(FlockScanLock, locksTheNearestFolderAboveWhereItsOwnCannotBe) {
    const ScratchFolder disk;
    disk.addFile("file");
    for (const char* impossible : {"file/sub", "file/sub/", "file"}) {
        FlockScanLock lock(disk.path(impossible));
        const auto hold = lock.tryHold();
        EXPECT_TRUE(hold) << impossible;
        EXPECT_FALSE(FlockScanLock(disk.path()).tryHold()) << impossible << ": the folder above is locked";
        EXPECT_FALSE(lock.tryHold()) << impossible;
    }
}

} // namespace
} // namespace brovin::posix
