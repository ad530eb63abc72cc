#include "posix/posix_file_system.h"
#include "posix/scratch_folder.h"

#include <gtest/gtest.h>

#include <unistd.h>

namespace brovin::posix {
namespace {

TEST(FindWithoutCase, lowersWhatTheDiskHasByUnicode) {
    const ScratchFolder disk;
    disk.addFolder("\u00DCbersicht/\u0416");
    disk.addFolder("Stray\xFF");
    disk.addFolder("Icon\r");
    PosixFileSystem files;
    EXPECT_EQ(disk.path("\u00DCbersicht/\u0416"), files.findWithoutCase(disk.path("\u00FCbersicht/\u0436")));
    EXPECT_EQ(disk.path("Stray\xFF"), files.findWithoutCase(disk.path("stray\xFF")));
    EXPECT_EQ(disk.path("Icon\r"), files.findWithoutCase(disk.path("icon\r")));
    EXPECT_EQ(std::nullopt, files.findWithoutCase(disk.path("icon?"))) << "only a list shows it so";
}

TEST(FindWithoutCase, followsLinksOnTheWay) {
    const ScratchFolder disk;
    disk.addFolder("Real/Photos");
    disk.addFile("File");
    disk.addLink("Shortcut", "Real");
    disk.addLink("Broken", "missing");
    PosixFileSystem files;
    EXPECT_EQ(disk.path("Shortcut/Photos"), files.findWithoutCase(disk.path("shortcut/photos")));
    EXPECT_EQ(std::nullopt, files.findWithoutCase(disk.path("broken/photos")));
    EXPECT_EQ(std::nullopt, files.findWithoutCase(disk.path("file/photos")));
}

TEST(FindWithoutCase, needsNoPermissionToListAFolderWhoseNameIsExact) {
    if (::geteuid() == 0)
        GTEST_SKIP() << "no folder is locked for the administrator";
    const ScratchFolder disk;
    disk.addFolder("hidden/Photos");
    disk.setMode("hidden", 0100);
    PosixFileSystem files;
    EXPECT_EQ(disk.path("hidden/Photos"), files.findWithoutCase(disk.path("hidden/Photos")));
    EXPECT_EQ(std::nullopt, files.findWithoutCase(disk.path("hidden/photos")));
    disk.setMode("hidden", 0700);
}

} // namespace
} // namespace brovin::posix
