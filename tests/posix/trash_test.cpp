#include "posix/outcome.h"
#include "posix/own_mounts.h"
#include "posix/posix_file_system.h"
#include "posix/scratch_folder.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace brovin::posix {
namespace {

using platform::EntryKind;
using platform::Force;
using Paths = std::vector<std::string>;

struct TrashTest : testing::Test {
    TrashTest() { ::setenv("XDG_DATA_HOME", scratch.path("data").c_str(), 1); }

    platform::Status take(const std::string& name, EntryKind kind = EntryKind::File, Force force = Force::No,
                          const std::string& folder = "disk") const {
        return (*PosixFileSystem().open(scratch.path(folder)))->moveToTrash(name, kind, force);
    }
    [[nodiscard]] bool exists(const std::string& name) const {
        return std::filesystem::symlink_status(scratch.path(name)).type() !=
               std::filesystem::file_type::not_found;
    }
    /// What the note says about where it was.
    [[nodiscard]] std::string origin(const std::string& note) const {
        std::ifstream file(scratch.path(note));
        std::string head, path, date;
        std::getline(file, head), std::getline(file, path), std::getline(file, date);
        EXPECT_EQ("[Trash Info]", head) << note;
        EXPECT_EQ(32U, date.size()) << date;
        return path;
    }

    ScratchFolder scratch;
    std::string user = std::to_string(::getuid());
};

TEST_F(TrashTest, movesToTheTrashAtHome) {
    const std::string longest(255, 'n');
    const std::pair<std::string, std::string> kNames[] = {
        {"._plain-name_1.txt", "._plain-name_1.txt"},
        {"Icon\r", "Icon%0D"},
        {"50% \xC3\xBC\n[x]", "50%25%20%C3%BC%0A%5Bx%5D"},
        {longest, longest},
    };
    for (const auto& [name, encoded] : kNames) {
        scratch.addText("disk/" + name, "kept");
        EXPECT_EQ("", reasonOf(take(name)));
        const std::string kept = name.substr(0, 245);
        EXPECT_FALSE(exists("disk/" + name));
        EXPECT_TRUE(exists("data/Trash/files/" + kept));
        EXPECT_EQ("Path=" + scratch.path("disk/") + encoded,
                  origin("data/Trash/info/" + kept + ".trashinfo"));
    }
    scratch.addText("elsewhere/file", "");
    scratch.addLink("disk/link", scratch.path("elsewhere"));
    EXPECT_TRUE(take("link"));
    EXPECT_TRUE(std::filesystem::is_symlink(scratch.path("data/Trash/files/link")));
    for (int i = 0; i < 40; ++i) { // each finds a name, and each has its note
        scratch.addFile("disk/same/inside");
        EXPECT_EQ("", reasonOf(take("same", EntryKind::Folder)));
    }
    const auto count = [this](const char* folder) {
        const std::filesystem::directory_iterator all(scratch.path(folder));
        return std::distance(begin(all), end(all));
    };
    EXPECT_EQ(45, count("data/Trash/files"));
    EXPECT_EQ(45, count("data/Trash/info"));
    EXPECT_EQ(0700U, scratch.mode("data/Trash"));

    EXPECT_TRUE((*PosixFileSystem().open(scratch.path("data/Trash/files/same")))->isInTrash());
    EXPECT_FALSE((*PosixFileSystem().open(scratch.path("disk")))->isInTrash());
}

TEST_F(TrashTest, leavesWhatADeletionWouldRefuse) {
    scratch.addFile("disk/file");
    scratch.addFile("disk/tree/deep/file");
    scratch.setMode("disk/file", 0444);
    scratch.setMode("disk/tree/deep/file", 0444);
    EXPECT_EQ("Is read-only", reasonOf(take("file")));
    EXPECT_EQ("Is read-only", reasonOf(take("tree", EntryKind::Folder)));
    EXPECT_EQ(EISDIR, errorOf(take("tree")));
    EXPECT_EQ(ENOTDIR, errorOf(take("file", EntryKind::Folder, Force::Yes)));
    EXPECT_EQ(ENOENT, errorOf(take("missing")));
    EXPECT_EQ(EINVAL, errorOf(take("../disk", EntryKind::Folder)));
    EXPECT_EQ((Paths{"disk", "disk/file", "disk/tree", "disk/tree/deep", "disk/tree/deep/file"}),
              scratch.tree());
    scratch.setMode("disk/tree", 0555);
    EXPECT_TRUE(take("file", EntryKind::File, Force::Yes));
    EXPECT_EQ("", reasonOf(take("tree", EntryKind::Folder, Force::Yes)));
    EXPECT_EQ(0555U, scratch.mode("data/Trash/files/tree"));
}

TEST_F(TrashTest, usesTheTrashAtTheTopOfAnotherDisk) {
    const struct {
        const char* what;
        std::function<void(const TrashTest&)> prepare;
        std::string trash; ///< where it goes; empty: there is none
    } kCases[] = {
        {"none yet", [](const auto&) {}, ".Trash-0"},
        {"one for all",
         [](const auto& t) { t.scratch.addFolder("disk/.Trash"), t.scratch.setMode("disk/.Trash", 01777); },
         ".Trash/0"},
        {"one for all that is not sticky", [](const auto& t) { t.scratch.addFolder("disk/.Trash"); },
         ".Trash-0"},
        {"a link to one for all",
         [](const auto& t) {
             t.scratch.addFolder("disk/trap"), t.scratch.setMode("disk/trap", 01777);
             t.scratch.addLink("disk/.Trash", "trap");
         },
         ".Trash-0"},
        {"a link in one for all",
         [](const auto& t) {
             t.scratch.addFolder("disk/.Trash"), t.scratch.setMode("disk/.Trash", 01777);
             t.scratch.addFolder("disk/trap"), t.scratch.addLink("disk/.Trash/0", "../trap");
         },
         ".Trash-0"},
        {"a link for the user",
         [](const auto& t) { t.scratch.addFolder("disk/trap"), t.scratch.addLink("disk/.Trash-0", "trap"); },
         ""},
        {"a link within",
         [](const auto& t) {
             t.scratch.addFolder("disk/trap"), t.scratch.addFolder("disk/.Trash-0");
             t.scratch.addLink("disk/.Trash-0/files", "../trap");
         },
         ""},
        {"somebody else's",
         [](const auto& t) {
             t.scratch.addFolder("disk/.Trash-0");
             if (::chown(t.scratch.path("disk/.Trash-0").c_str(), 12345, 12345) != 0)
                 t.scratch.addFile("disk/.Trash-0/files"); // a user of his own may not: no folder is no trash
         },
         ""},
        {"a file", [](const auto& t) { t.scratch.addFile("disk/.Trash-0"); }, ""},
    };
    withOwnMounts([&] {
        scratch.addFolder("disk");
        const std::string disk = scratch.path("disk");
        for (const auto& [what, prepare, trash] : kCases) {
            ASSERT_EQ(0, ::mount("tmpfs", disk.c_str(), "tmpfs", 0, nullptr));
            prepare(*this);
            scratch.addFile("disk/a b/junk");
            const platform::Status taken = take("junk", EntryKind::File, Force::No, "disk/a b");
            EXPECT_EQ(trash.empty() ? platform::kNoTrash : 0, errorOf(taken)) << what << reasonOf(taken);
            EXPECT_EQ(trash.empty(), exists("disk/a b/junk")) << what;
            if (!trash.empty()) {
                EXPECT_TRUE(exists("disk/" + trash + "/files/junk")) << what;
                EXPECT_EQ("Path=a%20b/junk", origin("disk/" + trash + "/info/junk.trashinfo")) << what;
                EXPECT_TRUE((*PosixFileSystem().open(scratch.path("disk/" + trash + "/files")))->isInTrash());
                scratch.addFolder("disk/outer/disk");
                ASSERT_EQ(0, ::mount("tmpfs", scratch.path("disk/outer/disk").c_str(), "tmpfs", 0, nullptr));
                EXPECT_EQ(EBUSY, errorOf(take("outer", EntryKind::Folder, Force::Yes)))
                    << "a disk hangs in it";
                ASSERT_EQ(0, ::umount(scratch.path("disk/outer/disk").c_str()));
            }
            EXPECT_TRUE(!exists("disk/trap") || std::filesystem::is_empty(scratch.path("disk/trap"))) << what;
            ASSERT_EQ(0, ::umount(disk.c_str()));
        }
        EXPECT_FALSE(exists("data/Trash"));
    });
}

} // namespace
} // namespace brovin::posix
