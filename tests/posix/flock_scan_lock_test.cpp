#include "posix/flock_scan_lock.h"
#include "posix/scratch_folder.h"

#include <gtest/gtest.h>

#include <fcntl.h>

namespace brovin::posix {
namespace {

TEST(FlockScanLock, leavesNoFile) {
    const ScratchFolder disk;
    EXPECT_TRUE(FlockScanLock(disk.path()).tryHold());
    EXPECT_TRUE(disk.tree().empty());
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
