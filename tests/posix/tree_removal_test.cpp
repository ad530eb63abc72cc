#include "posix/outcome.h"
#include "posix/own_mounts.h"
#include "posix/posix_file_system.h"
#include "posix/scratch_folder.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <cstdio>
#include <fstream>
#include <functional>
#include <string>
#include <thread>

namespace brovin::posix {
namespace {

using platform::Force;
using Paths = std::vector<std::string>;

class TreeRemovalTest : public testing::Test {
protected:
    platform::Status remove(const std::string& name, Force force) {
        const auto walk = *PosixFileSystem().open(disk_.path());
        return walk->deleteFolder(name, force);
    }

    static bool setModeUnlessLink(const std::string& path, mode_t mode) {
        return ::fchmodat(AT_FDCWD, path.c_str(), mode, AT_SYMLINK_NOFOLLOW) == 0;
    }

    ScratchFolder disk_;
};

TEST_F(TreeRemovalTest, takesWideAndNestedFoldersWhole) {
    for (const std::string outer : {"gone/1/", "gone/22/", "gone/333/"})
        for (const char* inner : {"x", "yy", "zzz"}) {
            disk_.addFolder(outer + inner + "/empty");
            disk_.addFile(outer + inner + "/deeper/file", 1);
        }
    disk_.addFile("kept/file");
    const auto walk = *PosixFileSystem().open(disk_.path());
    EXPECT_EQ(9U, *walk->folderSize("gone"));
    EXPECT_TRUE(walk->deleteFolder("gone", Force::No));
    EXPECT_EQ((Paths{"kept", "kept/file"}), disk_.tree());
}

TEST_F(TreeRemovalTest, deletesLinksAndPipesAndFollowsNothing) {
    disk_.addFile("gone/file");
    disk_.addFile("elsewhere/kept");
    disk_.addLink("gone/toFolder", "../elsewhere");
    disk_.addLink("gone/toFile", "../elsewhere/kept");
    disk_.addLink("gone/toNothing", "missing");
    ASSERT_EQ(0, ::mkfifo(disk_.path("gone/pipe").c_str(), 0600));
    EXPECT_TRUE(remove("gone", Force::No));
    EXPECT_EQ((Paths{"elsewhere", "elsewhere/kept"}), disk_.tree());
}

TEST_F(TreeRemovalTest, stopsAtAReadOnlyEntry) {
    for (const auto& [readOnly, mode] : {std::pair{"gone/sub/file", 0444U}, {"gone/sub", 0555U}}) {
        disk_.addFile("gone/sub/file");
        disk_.setMode(readOnly, mode);
        EXPECT_EQ(EACCES, errorOf(remove("gone", Force::No))) << readOnly;
        EXPECT_EQ((Paths{"gone", "gone/sub", "gone/sub/file"}), disk_.tree()) << readOnly;
        EXPECT_EQ(mode, disk_.mode(readOnly));
        EXPECT_TRUE(remove("gone", Force::Yes)) << readOnly;
        EXPECT_EQ(Paths{}, disk_.tree()) << readOnly;
    }
}

TEST_F(TreeRemovalTest, takesNoLinkForReadOnly) {
    disk_.addFile("target");
    disk_.setMode("target", 0444);
    disk_.addFolder("gone");
    disk_.addLink("gone/link", "../target");
    disk_.addLink("link", "target");
    const auto walk = *PosixFileSystem().open(disk_.path());
    EXPECT_TRUE(walk->deleteFile("link", Force::No));
    EXPECT_TRUE(walk->deleteFolder("gone", Force::No));
    EXPECT_EQ(Paths{"target"}, disk_.tree());
}

TEST_F(TreeRemovalTest, unlocksByForceWhatIsToBeEmptiedAndNothingElse) {
    for (const unsigned mode : {0U, 0100U, 0200U, 0300U, 0400U, 0500U, 0600U}) {
        disk_.addFile("elsewhere/kept");
        disk_.addFile("gone/outer/inner/file");
        disk_.addLink("gone/outer/inner/link", "../../../elsewhere");
        for (const char* folder : {"gone/outer/inner", "gone/outer", "gone", "elsewhere"})
            disk_.setMode(folder, mode);
        EXPECT_TRUE(remove("gone", Force::Yes)) << std::oct << mode;
        EXPECT_EQ(mode, disk_.mode("elsewhere"));
        disk_.setMode("elsewhere", 0700);
        EXPECT_EQ((Paths{"elsewhere", "elsewhere/kept"}), disk_.tree()) << std::oct << mode;
    }
}

TEST_F(TreeRemovalTest, staysOutOfALinkThatChangesPlacesWithTheFolder) {
    disk_.addFile("elsewhere/kept");
    disk_.addFile("elsewhere/sub/kept");
    disk_.setMode("elsewhere", 0500);
    disk_.addLink("decoy", "elsewhere");
    const std::string folder = disk_.path("gone");
    const std::string decoy = disk_.path("decoy");
    std::atomic<bool> done = false;
    std::thread swapper([&] {
        while (!done)
            ::renameat2(AT_FDCWD, folder.c_str(), AT_FDCWD, decoy.c_str(), RENAME_EXCHANGE);
    });
    for (int round = 0; round < 300; ++round) {
        std::error_code lostTheRace;
        std::filesystem::create_directories(folder + "/sub", lostTheRace);
        std::ofstream(folder + "/sub/file") << "x";
        setModeUnlessLink(folder, 0);
        static_cast<void>(remove("gone", Force::Yes)); // fails whenever the link stands there
    }
    done = true;
    swapper.join();
    EXPECT_EQ(0500U, disk_.mode("elsewhere"));
    EXPECT_TRUE(std::filesystem::exists(disk_.path("elsewhere/kept")));
    EXPECT_TRUE(std::filesystem::exists(disk_.path("elsewhere/sub/kept")));
    for (const std::string& left : {folder, decoy, disk_.path("elsewhere")})
        setModeUnlessLink(left, 0700);
}

TEST_F(TreeRemovalTest, isBusyWhereADiskIsHungIn) {
    withOwnMounts([this] {
        disk_.addFile("gone/aaa/file");
        disk_.addFile("gone/zzz/file");
        disk_.addFolder("gone/mmm/mounted");
        const std::string mounted = disk_.path("gone/mmm/mounted");
        ASSERT_EQ(0, ::mount("none", mounted.c_str(), "tmpfs", 0, nullptr)) << errno;
        disk_.addFile("gone/mmm/mounted/kept");
        const Paths all = disk_.tree();
        const auto walk = *PosixFileSystem().open(disk_.path());
        for (const Force force : {Force::Yes, Force::No})
            EXPECT_EQ(EBUSY, errorOf(walk->deleteFolder("gone", force))) << "contains it";
        ASSERT_TRUE(walk->enter("gone") && walk->enter("mmm"));
        EXPECT_EQ(EBUSY, errorOf(walk->deleteFolder("mounted", Force::Yes))) << "is it";
        EXPECT_EQ(all, disk_.tree()) << "nothing is deleted on either side";
        ASSERT_TRUE(walk->enter("mounted")) << "swept like a folder";
        EXPECT_TRUE(walk->deleteFile("kept", Force::No));
        ASSERT_TRUE(walk->leave());
        ASSERT_EQ(0, ::umount2(mounted.c_str(), MNT_DETACH));
    });
}

TEST_F(TreeRemovalTest, isBusyWhereAFolderOfTheSameDiskIsHungIn) {
    withOwnMounts([this] {
        disk_.addFile("elsewhere/kept");
        disk_.addFile("gone/aaa/file");
        disk_.addFolder("gone/mounted");
        disk_.setMode("elsewhere", 0500);
        const std::string mounted = disk_.path("gone/mounted");
        ASSERT_EQ(0, ::mount(disk_.path("elsewhere").c_str(), mounted.c_str(), nullptr, MS_BIND, nullptr))
            << errno;
        const Paths all = disk_.tree();
        EXPECT_EQ(EBUSY, errorOf(remove("gone", Force::Yes)));
        EXPECT_EQ(all, disk_.tree());
        EXPECT_EQ(0500U, disk_.mode("elsewhere"));
        ASSERT_EQ(0, ::umount2(mounted.c_str(), MNT_DETACH));
        EXPECT_TRUE(remove("gone", Force::Yes));
        EXPECT_EQ((Paths{"elsewhere", "elsewhere/kept"}), disk_.tree());
        disk_.setMode("elsewhere", 0700);
    });
}

} // namespace
} // namespace brovin::posix
