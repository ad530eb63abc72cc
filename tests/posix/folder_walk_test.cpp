#include "posix/deep_tree.h"
#include "posix/outcome.h"
#include "posix/posix_file_system.h"
#include "posix/scratch_folder.h"

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <set>

namespace brovin::posix {
namespace {

using platform::EntryKind;
using platform::Force;
using Paths = std::vector<std::string>;

class FolderWalkTest : public testing::Test {
protected:
    std::unique_ptr<platform::FolderWalk> open(const std::string& name = "") {
        return std::move(*PosixFileSystem().open(disk_.path(name)));
    }

    ScratchFolder disk_;
};

TEST_F(FolderWalkTest, opensOnlyFoldersAndNeverWaits) {
    disk_.addFile("file");
    disk_.addLink("nowhere", "missing");
    ASSERT_EQ(0, ::mkfifo(disk_.path("pipe").c_str(), 0600));
    PosixFileSystem files;
    EXPECT_EQ(ENOTDIR, errorOf(files.open(disk_.path("file"))));
    EXPECT_EQ(ENOTDIR, errorOf(files.open(disk_.path("pipe"))));
    EXPECT_EQ(ENOENT, errorOf(files.open(disk_.path("nowhere"))));
    EXPECT_EQ("No such file or directory", reasonOf(files.open(disk_.path("missing"))));
    EXPECT_FALSE(files.open(disk_.path() + std::string("\0/x", 3))) << "the path would end early";
}

TEST_F(FolderWalkTest, reachesTheWatchedFolderThroughLinksButFollowsNoneBelow) {
    disk_.addFile("watched/file", 10);
    disk_.addFile("elsewhere/kept", 1000);
    disk_.addLink("shortcut", "watched");
    disk_.addLink("watched/link", "../elsewhere");
    disk_.addFolder("watched/sub");
    disk_.addLink("watched/sub/link", "../../elsewhere/kept");
    const auto walk = open("shortcut");
    std::set<std::string> folders;
    const auto entries = *walk->list();
    for (const platform::Entry& entry : entries) {
        if (entry.kind == EntryKind::Folder)
            folders.emplace(entry.name);
    }
    EXPECT_EQ(std::set<std::string>{"sub"}, folders);
    EXPECT_EQ(std::string("../../elsewhere/kept").size(), *walk->folderSize("sub"));
    EXPECT_TRUE(walk->deleteFolder("sub", Force::No));
    EXPECT_EQ(ENOTDIR, errorOf(walk->enter("link")));
    EXPECT_EQ(ENOTDIR, errorOf(walk->folderSize("link")));
    EXPECT_EQ(ENOTDIR, errorOf(walk->deleteFolder("link", Force::Yes)));
    EXPECT_EQ(std::string("../elsewhere").size(), *walk->fileLength("link"));
    EXPECT_TRUE(walk->deleteFile("link", Force::No));
    EXPECT_EQ((Paths{"elsewhere", "elsewhere/kept", "shortcut", "watched", "watched/file"}), disk_.tree());
}

TEST_F(FolderWalkTest, isNotLedAwayByLinksThatReplaceWhatWasListed) {
    disk_.addFile("watched/folder/x");
    disk_.addFile("watched/file");
    disk_.addFile("elsewhere/kept");
    const auto walk = open("watched");
    ASSERT_EQ(2U, walk->list()->size());
    std::filesystem::remove_all(disk_.path("watched/folder"));
    std::filesystem::remove(disk_.path("watched/file"));
    disk_.addLink("watched/folder", "../elsewhere");
    disk_.addLink("watched/file", "../elsewhere/kept");
    EXPECT_FALSE(walk->enter("folder"));
    EXPECT_FALSE(walk->folderSize("folder"));
    EXPECT_FALSE(walk->deleteFolder("folder", Force::Yes));
    EXPECT_TRUE(walk->deleteFile("file", Force::Yes)) << "the link itself";
    EXPECT_EQ((Paths{"elsewhere", "elsewhere/kept", "watched", "watched/folder"}), disk_.tree());
}

TEST_F(FolderWalkTest, staysInTheFolderThatItHoldsWhenItsPathIsTakenOver) {
    disk_.addFile("watched/sub/mine");
    disk_.addFile("elsewhere/mine");
    const auto walk = open("watched");
    ASSERT_TRUE(walk->enter("sub"));
    std::filesystem::rename(disk_.path("watched/sub"), disk_.path("watched/moved"));
    disk_.addLink("watched/sub", "../elsewhere");
    EXPECT_TRUE(walk->deleteFile("mine", Force::No));
    EXPECT_EQ((Paths{"elsewhere", "elsewhere/mine", "watched", "watched/moved", "watched/sub"}),
              disk_.tree());
}

TEST_F(FolderWalkTest, handlesNamesThatAreNotUtf8ByteForByte) {
    const std::string strange = "St\xC4nge\xFF";
    disk_.addFile(strange, 7);
    disk_.addFile(strange + "2/inside");
    const auto walk = open();
    std::set<std::string> shown;
    const auto entries = *walk->list();
    for (const platform::Entry& entry : entries)
        shown.emplace(entry.name);
    EXPECT_EQ((std::set<std::string>{"st\xC4nge\xFF", "st\xC4nge\xFF\x32"}), shown);
    EXPECT_EQ(7U, *walk->fileLength(strange));
    EXPECT_TRUE(walk->deleteFile(strange, Force::No));
    EXPECT_TRUE(walk->deleteFolder(strange + "2", Force::No));
    EXPECT_EQ(Paths{}, disk_.tree());
}

TEST_F(FolderWalkTest, listsFoldersThatOutgrowItsMemory) {
    constexpr int kFiles = 900;
    const std::string filler(250, 'X');
    std::set<std::string> expected;
    for (int i = 0; i < kFiles; ++i)
        expected.insert(filler + std::to_string(i));
    for (const std::string& name : expected)
        disk_.addText(name, "");
    const auto walk = open();
    const auto entries = *walk->list();
    std::set<std::string> listed;
    for (const platform::Entry& entry : entries) {
        EXPECT_EQ(std::string(250, 'x'), entry.name.substr(0, 250));
        listed.emplace(entry.trueName);
    }
    EXPECT_EQ(expected, listed);
    EXPECT_EQ(std::size_t{kFiles}, entries.size());
}

TEST_F(FolderWalkTest, goesDeeperThanDescriptorsAndPathsReach) {
    constexpr int kLevels = 1000;
    makeDeepTree(disk_.path(), kLevels);
    const DescriptorLimit few(64);
    const auto walk = open();
    for (int level = 0; level < kLevels; ++level)
        ASSERT_TRUE(walk->enter(kDeepName)) << level;
    EXPECT_EQ(3U, *walk->fileLength("bottom"));
    for (int level = kLevels; level > 0; --level)
        ASSERT_TRUE(walk->leave()) << level;
    EXPECT_EQ(3U, *walk->folderSize(kDeepName));
    EXPECT_TRUE(walk->deleteFolder(kDeepName, Force::No));
    EXPECT_EQ(Paths{}, disk_.tree());
}

TEST_F(FolderWalkTest, endsWhenTheWayBackUpWasMoved) {
    constexpr int kLevels = 100;
    disk_.addFolder("watched");
    disk_.addFile("elsewhere/mine");
    makeDeepTree(disk_.path("watched"), kLevels);
    const auto walk = open("watched");
    for (int level = 0; level < kLevels; ++level)
        ASSERT_TRUE(walk->enter(kDeepName));
    const std::string third = "watched/" + kDeepName + "/" + kDeepName + "/" + kDeepName;
    std::filesystem::rename(disk_.path(third), disk_.path("elsewhere/moved"));
    for (int level = kLevels; level > 3; --level)
        ASSERT_TRUE(walk->leave()) << level;
    EXPECT_EQ(ESTALE, errorOf(walk->leave()));
    EXPECT_FALSE(walk->leave());
    EXPECT_FALSE(walk->list());
    EXPECT_FALSE(walk->enter(kDeepName));
    EXPECT_FALSE(walk->fileLength("mine"));
    EXPECT_FALSE(walk->deleteFile("mine", Force::Yes));
    EXPECT_FALSE(walk->deleteFolder(kDeepName, Force::Yes));
    EXPECT_TRUE(std::filesystem::exists(disk_.path("elsewhere/mine")));
}

TEST_F(FolderWalkTest, saysWhyALockedFolderIsNotEntered) {
    if (::geteuid() == 0)
        GTEST_SKIP() << "no folder is locked for the administrator";
    disk_.addFolder("locked");
    disk_.setMode("locked", 0300);
    const auto walk = open();
    EXPECT_EQ("Permission denied", reasonOf(walk->enter("locked")));
    EXPECT_EQ(EACCES, errorOf(walk->folderSize("locked")));
    disk_.setMode("locked", 0700);
}

} // namespace
} // namespace brovin::posix
