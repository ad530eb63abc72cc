#include "posix/disk_program_folder.h"
#include "posix/outcome.h"
#include "posix/scratch_folder.h"

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <fstream>
#include <iterator>
#include <limits>

namespace brovin::posix {
namespace {

using platform::OpenMode;
using Names = std::vector<std::string>;
constexpr std::size_t kAnySize = std::numeric_limits<std::size_t>::max();

class ProgramFolderTest : public testing::Test {
protected:
    [[nodiscard]] std::string onDisk(const std::string& name) const {
        std::ifstream file(disk_.path(name), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    void write(const std::string& name, OpenMode mode, const std::string& line) {
        auto file = folder_.openText(name, mode);
        ASSERT_TRUE(file) << file.failure().reason;
        EXPECT_TRUE((*file)->writeLine(line));
    }

    ScratchFolder disk_;
    DiskProgramFolder folder_{{.installed = disk_.path("installed"), .own = disk_.path("own/data")}};
};

TEST_F(ProgramFolderTest, prefersTheUsersOwnFiles) {
    EXPECT_EQ(std::nullopt, folder_.read("both.lng", kAnySize));
    EXPECT_EQ(disk_.path("own/data/both.lng"), folder_.path("both.lng"));
    EXPECT_TRUE(disk_.tree().empty()) << "looking makes nothing";
    disk_.addText("installed/both.lng", "installed");
    disk_.addText("installed/only.lng", "installed");
    disk_.addText("own/data/both.lng", "own");
    EXPECT_EQ("own", folder_.read("both.lng", kAnySize));
    EXPECT_EQ("installed", folder_.read("only.lng", kAnySize));
    EXPECT_EQ(disk_.path("own/data/both.lng"), folder_.path("both.lng"));
    EXPECT_EQ(disk_.path("installed/only.lng"), folder_.path("only.lng"));
}

TEST_F(ProgramFolderTest, listsTheFilesOfBothOnce) {
    for (const char* name : {"installed/b.lng", "installed/a.LNG", "own/data/b.lng", "own/data/Z.lng"})
        disk_.addFile(name);
    disk_.addFolder("installed/folder.lng");
    disk_.addLink("own/data/linked.lng", "b.lng");
    disk_.addLink("own/data/broken.lng", "missing");
    disk_.addLink("own/data/around.lng", ".");
    EXPECT_EQ((Names{"Z.lng", "a.LNG", "b.lng", "linked.lng"}), folder_.list(".lng"));
}

TEST_F(ProgramFolderTest, goesByWhatAFileHoldsAndNotByTheSizeItClaims) {
    DiskProgramFolder process({.installed = "/proc/self", .own = "/proc/self"});
    const auto status = process.read("status", kAnySize);
    ASSERT_TRUE(status);
    EXPECT_TRUE(status->starts_with("Name:"));
    EXPECT_EQ(std::nullopt, process.read("status", 10));
}

TEST_F(ProgramFolderTest, doesNotWaitForPipes) {
    disk_.addFolder("own/data");
    ASSERT_EQ(0, ::mkfifo(disk_.path("own/data/pipe").c_str(), 0600));
    EXPECT_EQ(std::nullopt, folder_.read("pipe", kAnySize));
    EXPECT_FALSE(folder_.openText("pipe", OpenMode::Append));
    EXPECT_EQ(Names{}, folder_.list("pipe"));
}

TEST_F(ProgramFolderTest, writesToTheUsersFolderAlone) {
    disk_.addText("installed/log", "installed\r\n");
    write("log", OpenMode::Append, "own");
    EXPECT_EQ("own\r\n", onDisk("own/data/log"));
    EXPECT_EQ("installed\r\n", onDisk("installed/log"));
    EXPECT_EQ(0700U, disk_.mode("own"));
    EXPECT_EQ(0600U, disk_.mode("own/data/log"));
}

TEST_F(ProgramFolderTest, writesWhereTheUsersLinkLeads) {
    disk_.addFolder("own/data");
    disk_.addText("big disk/log", "old\r\n");
    disk_.addLink("own/data/log", "../../big disk/log");
    write("log", OpenMode::Append, "more");
    EXPECT_EQ("old\r\nmore\r\n", onDisk("big disk/log"));
}

TEST_F(ProgramFolderTest, closesALineThatASuddenEndHasTorn) {
    disk_.addText("own/data/log", "whole\r\ntorn");
    write("log", OpenMode::Append, "next");
    EXPECT_EQ("whole\r\ntorn\r\nnext\r\n", onDisk("own/data/log"));
}

TEST_F(ProgramFolderTest, saysWhyItCannotWrite) {
    disk_.addFile("own/data");
    EXPECT_EQ("Not a directory", reasonOf(folder_.openText("log", OpenMode::Append)));
    std::filesystem::remove(disk_.path("own/data"));
    disk_.addFolder("own/data/log");
    EXPECT_EQ("Is a directory", reasonOf(folder_.openText("log", OpenMode::Append)));
}

TEST_F(ProgramFolderTest, replacesAFileWithoutFollowingALink) {
    disk_.addText("elsewhere", "kept");
    disk_.addFolder("own/data");
    disk_.addLink("own/data/a.blp.new", disk_.path("elsewhere"));
    EXPECT_EQ("", reasonOf(folder_.replace("a.blp", "third")));
    EXPECT_EQ("kept", onDisk("elsewhere")) << "a planted link";
    EXPECT_EQ("third", onDisk("own/data/a.blp"));
    disk_.addFolder("own/data/a.blp.new");
    EXPECT_NE("", reasonOf(folder_.replace("a.blp", "fourth")));
    EXPECT_EQ("third", onDisk("own/data/a.blp")) << "the old one stays";
}

TEST_F(ProgramFolderTest, keepsLinesOfSeveralWritersWhole) {
    constexpr int kWriters = 4;
    constexpr int kLines = 200;
    disk_.addFolder("own/data");
    for (int writer = 0; writer < kWriters; ++writer) {
        if (::fork() != 0)
            continue;
        auto file = folder_.openText("log", OpenMode::Append);
        for (int line = 0; file && line < kLines; ++line)
            static_cast<void>((*file)->writeLine(std::string(500, static_cast<char>('a' + writer))));
        ::_exit(0);
    }
    while (::wait(nullptr) > 0) {
    }
    std::istringstream log(onDisk("own/data/log"));
    int lines = 0;
    for (std::string line; std::getline(log, line); ++lines)
        ASSERT_EQ(std::string(500, line.front()) + '\r', line);
    EXPECT_EQ(kWriters * kLines, lines);
}

} // namespace
} // namespace brovin::posix
