#include "posix/descriptor.h"
#include "posix/outcome.h"
#include "posix/own_mounts.h"
#include "posix/posix_file_system.h"
#include "posix/scratch_folder.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <stdexcept>
#include <string>

namespace brovin::posix {
namespace {

using platform::EntryKind;
using platform::Force;
using Paths = std::vector<std::string>;

/// The name of each folder of a deep tree: a few dozen of them make a path longer than the system takes.
const std::string kDeepName(100, 'd');

/// Makes folders of that name one in the other below `top`, and in the last a file "bottom" of three bytes.
void makeDeepTree(const std::string& top, int levels) {
    Descriptor place(::open(top.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    for (int level = 0; level < levels && place; ++level) {
        const bool made = ::mkdirat(place.number(), kDeepName.c_str(), 0755) == 0;
        place = Descriptor(
            made ? ::openat(place.number(), kDeepName.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC) : -1);
    }
    const Descriptor file(::openat(place.number(), "bottom", O_WRONLY | O_CREAT | O_CLOEXEC, 0644));
    if (!file || ::write(file.number(), "abc", 3) != 3)
        throw std::runtime_error("no deep tree");
}

/// While it lives, this process may hold so many files open and no more.
class DescriptorLimit {
public:
    explicit DescriptorLimit(rlim_t most) {
        ::getrlimit(RLIMIT_NOFILE, &before_);
        const rlimit few{most, before_.rlim_max};
        ::setrlimit(RLIMIT_NOFILE, &few);
    }
    ~DescriptorLimit() { ::setrlimit(RLIMIT_NOFILE, &before_); }
    DescriptorLimit(const DescriptorLimit&) = delete;
    DescriptorLimit& operator=(const DescriptorLimit&) = delete;

private:
    rlimit before_{};
};

class FolderWalkTest : public testing::TestWithParam<ReadingAhead> {
protected:
    std::unique_ptr<platform::FolderWalk> open(const std::string& name = "") {
        return *PosixFileSystem(GetParam()).open(disk_.path(name));
    }

    ScratchFolder disk_;
};

INSTANTIATE_TEST_SUITE_P(On, FolderWalkTest, testing::Values(ReadingAhead::WhereSlow, ReadingAhead::Always),
                         [](const auto& when) {
                             return when.param == ReadingAhead::Always ? "SlowDisk" : "FastDisk";
                         });

TEST_P(FolderWalkTest, opensOnlyFoldersAndNeverWaits) {
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

TEST_P(FolderWalkTest, reachesTheWatchedFolderThroughLinksButFollowsNoneBelow) {
    disk_.addFile("watched/file", 10);
    disk_.addFile("elsewhere/kept", 1000);
    disk_.addLink("shortcut", "watched");
    disk_.addLink("watched/link", "../elsewhere");
    disk_.addFolder("watched/sub");
    disk_.addLink("watched/sub/link", "../../elsewhere/kept");
    const auto walk = open("shortcut");
    const auto entries = *walk->list();
    for (const platform::Entry& entry : entries)
        EXPECT_EQ(entry.name == "sub" ? EntryKind::Folder : EntryKind::File, entry.kind) << entry.name;
    EXPECT_EQ(std::string("../../elsewhere/kept").size(), *walk->folderSize("sub"));
    EXPECT_EQ(ENOTDIR, errorOf(walk->enter("link")));
    EXPECT_EQ(ENOTDIR, errorOf(walk->folderSize("link")));
    EXPECT_EQ(ENOTDIR, errorOf(walk->deleteFolder("link", Force::Yes)));
    EXPECT_EQ(std::string("../elsewhere").size(), walk->facts("link")->bytes);
    EXPECT_TRUE(walk->deleteFile("link", Force::No));
    EXPECT_EQ((Paths{"elsewhere", "elsewhere/kept", "shortcut", "watched", "watched/file", "watched/sub",
                     "watched/sub/link"}),
              disk_.tree());
}

TEST_P(FolderWalkTest, staysInTheFolderThatItHoldsWhenItsPathIsTakenOver) {
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

TEST_P(FolderWalkTest, handlesNamesThatAreNotUtf8ByteForByte) {
    const std::string strange = "St\xC4nge\xFF";
    disk_.addFile(strange, 7);
    const auto walk = open();
    EXPECT_EQ("st\xC4nge\xFF", walk->list()->front().name);
    EXPECT_EQ(7U, walk->facts(strange)->bytes);
    EXPECT_TRUE(walk->deleteFile(strange, Force::No));
    EXPECT_EQ(Paths{}, disk_.tree());
}

TEST_P(FolderWalkTest, listsHugeFoldersPieceByPiece) {
    constexpr int kFiles = 1'300; // more than is read ahead of one folder
    const std::string filler(240, 'X');
    for (int i = 0; i < kFiles; ++i)
        disk_.addText("sub/" + filler + std::to_string(i), "");
    disk_.addFolder("sub/below");
    const auto walk = open();
    EXPECT_EQ(1U, walk->list()->size());
    ASSERT_TRUE(walk->enter("sub"));
    Paths listed;
    for (auto piece = walk->list(); !piece->empty(); piece = walk->listMore()) {
        EXPECT_LE(piece->size(), 1'024U);
        for (const platform::Entry& entry : *piece) {
            EXPECT_TRUE(entry.kind == EntryKind::Folder || walk->deleteFile(entry.trueName, Force::Yes));
            listed.emplace_back(entry.name);
        }
    }
    std::ranges::sort(listed);
    EXPECT_EQ(kFiles + 1U, listed.size());
    EXPECT_EQ(listed.end(), std::ranges::adjacent_find(listed));
    EXPECT_TRUE(walk->enter("below"));
    EXPECT_EQ((Paths{"sub", "sub/below"}), disk_.tree());
}

TEST_P(FolderWalkTest, goesDeeperThanDescriptorsAndPathsReach) {
    constexpr int kLevels = 1000;
    makeDeepTree(disk_.path(), kLevels);
    const DescriptorLimit few(64);
    const auto walk = open();
    EXPECT_EQ(3U, *walk->folderSize(kDeepName));
    for (int level = 0; level < kLevels; ++level)
        ASSERT_TRUE(walk->enter(kDeepName)) << level;
    EXPECT_EQ(3U, walk->facts("bottom")->bytes);
    for (int level = kLevels; level > 0; --level) {
        ASSERT_TRUE(walk->leave()) << level;
        EXPECT_TRUE(level != kLevels - 300 || walk->deleteFolder(kDeepName, Force::Yes)) << "from far down";
    }
    EXPECT_TRUE(walk->deleteFolder(kDeepName, Force::No));
    EXPECT_EQ(Paths{}, disk_.tree());
}

TEST_P(FolderWalkTest, endsWhenTheWayBackUpWasMoved) {
    constexpr int kLevels = 100;
    disk_.addFolder("watched");
    disk_.addFile("elsewhere/mine");
    makeDeepTree(disk_.path("watched"), kLevels);
    const DescriptorLimit few(64);
    const auto walk = open("watched");
    for (int level = 0; level < kLevels; ++level)
        ASSERT_TRUE(walk->enter(kDeepName));
    const std::string third = "watched/" + kDeepName + "/" + kDeepName + "/" + kDeepName;
    std::filesystem::rename(disk_.path(third), disk_.path("elsewhere/moved"));
    for (int level = kLevels; level > 3; --level)
        ASSERT_TRUE(walk->leave()) << level;
    EXPECT_EQ(ESTALE, errorOf(walk->leave()));
    EXPECT_FALSE(walk->list());
    EXPECT_FALSE(walk->enter(kDeepName));
    EXPECT_FALSE(walk->deleteFile("mine", Force::Yes));
    EXPECT_FALSE(walk->deleteFolder(kDeepName, Force::Yes));
    EXPECT_TRUE(std::filesystem::exists(disk_.path("elsewhere/mine")));
}

TEST_P(FolderWalkTest, saysWhyALockedFolderIsNotEntered) {
    if (::geteuid() == 0)
        GTEST_SKIP() << "no folder is locked for the administrator";
    disk_.addFolder("locked");
    disk_.setMode("locked", 0300);
    const auto walk = open();
    EXPECT_EQ("Permission denied", reasonOf(walk->enter("locked")));
    EXPECT_EQ(EACCES, errorOf(walk->folderSize("locked")));
    disk_.setMode("locked", 0700);
}

TEST(FolderIdentity, tellsTheFolderFromAnotherInItsPlace) {
    const ScratchFolder disk;
    disk.addFolder("one");
    disk.addFolder("two");
    disk.addLink("link", "one");
    PosixFileSystem files;
    const auto identity = [&](const char* name) { return *(*files.open(disk.path(name)))->identity(); };
    const platform::FolderIdentity before = identity("link");
    EXPECT_EQ(std::filesystem::canonical(disk.path("one")).string(), before.path);
    EXPECT_EQ(before.inode, identity("one").inode);
    std::filesystem::remove(disk.path("link"));
    disk.addLink("link", "two");
    EXPECT_NE(before.path, identity("link").path);
    std::filesystem::rename(disk.path("two"), disk.path("one"));
    EXPECT_EQ(before.path, identity("one").path);
    EXPECT_NE(before.inode, identity("one").inode);
    const platform::FolderIdentity last = identity("one");
    std::filesystem::remove(disk.path("one"));
    disk.addFolder("one");
    const platform::FolderIdentity next = identity("one");
    EXPECT_TRUE(last.inode != next.inode || last.born.empty() || last.born != next.born);
}

TEST(FolderIdentity, tellsADiskFromAnotherInItsPlace) {
    const ScratchFolder disk;
    disk.addFolder("disk");
    disk.addFolder("other");
    withOwnMounts([&disk] {
        PosixFileSystem files;
        const auto mounted = [&](const char* name) {
            EXPECT_EQ(0, ::mount("none", disk.path(name).c_str(), "tmpfs", 0, nullptr));
            return *(*files.open(disk.path(name)))->identity();
        };
        const platform::FolderIdentity before = mounted("disk");
        EXPECT_EQ(0,
                  ::mount(disk.path("disk").c_str(), disk.path("other").c_str(), nullptr, MS_MOVE, nullptr));
        EXPECT_EQ(before.disk, (*(*files.open(disk.path("other")))->identity()).disk);
        const platform::FolderIdentity after = mounted("disk");
        EXPECT_EQ(before.inode, after.inode) << "which tells nothing";
        EXPECT_TRUE(before.disk.empty() || before.disk != after.disk) << "older kernels do not tell";
    });
}

} // namespace
} // namespace brovin::posix
