#include "posix/places.h"

#include "posix/scratch_folder.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace brovin::posix {
namespace {

TEST(Places, followTheEnvironment) {
    const ScratchFolder scratch;
    ::setenv("XDG_CONFIG_HOME", "relative/counts/for/nothing", 1);
    ::setenv("XDG_RUNTIME_DIR", scratch.path().c_str(), 1);
    ::setenv("HOME", "/home/joe", 1);
    const Places usual = findPlaces("").value();
    EXPECT_EQ("/home/joe/.config/Brovin/Brovin.conf", usual.settingsFile);
    ::setenv("XDG_CONFIG_HOME", "/second", 1);
    const Places second = findPlaces("").value();
    EXPECT_EQ("/second/autostart", second.autostartFolder);
    EXPECT_NE(usual.runningLock, second.runningLock) << "other settings are another program";
    EXPECT_EQ(0U, second.runningLock.find(scratch.path() + "/brovin"));
    ::setenv("XDG_RUNTIME_DIR", scratch.path("missing").c_str(), 1);
    EXPECT_EQ("/second/Brovin/brovin.lock", findPlaces("").value().runningLock);
    ::unsetenv("XDG_CONFIG_HOME");
}

TEST(AbsolutePath, meansWhatTheSystemMeans) {
    const ScratchFolder scratch;
    scratch.addFolder("far/away/folder");
    scratch.addLink("link", "far/away/folder");
    EXPECT_EQ(std::filesystem::canonical(scratch.path("far/away")).string(),
              absolutePath(scratch.path("link/..")));
    EXPECT_EQ(scratch.path("link"), absolutePath(scratch.path("link//./"))) << "as the user wrote it";
    EXPECT_EQ(scratch.path("caf\xE9"), absolutePath(scratch.path("caf\xE9"))) << "no UTF-8";
    EXPECT_EQ(std::filesystem::current_path().string() + "/here", absolutePath("here"));
    EXPECT_EQ("/", absolutePath("/"));
}

} // namespace
} // namespace brovin::posix
