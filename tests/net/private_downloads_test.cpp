#include "net/private_downloads.h"
#include "net/sodium_key.h"
#include "posix/scratch_folder.h"
#include "update/statement.h"

#include "signing.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/resource.h>
#include <unistd.h>

#include <csignal>
#include <thread>

namespace brovin::net {
namespace {

using posix::ScratchFolder;

std::string contentOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

struct World {
    ScratchFolder disk;
    PrivateDownloads downloads{disk.path("own")};

    std::unique_ptr<platform::DownloadFile> file(const std::string& content) {
        auto made = downloads.create("bro");
        EXPECT_TRUE(made);
        EXPECT_TRUE((*made)->append(content));
        EXPECT_TRUE((*made)->close());
        return *std::move(made);
    }
    [[nodiscard]] bool appears(const std::string& name) const {
        using namespace std::chrono_literals;
        for (int i = 0; i < 250 && !std::filesystem::exists(disk.path(name)); ++i)
            std::this_thread::sleep_for(20ms);
        return std::filesystem::exists(disk.path(name));
    }
};

TEST(PrivateDownloads, areThisUsersAlone) {
    World world;
    const auto file = world.file("hello");
    EXPECT_EQ(std::filesystem::perms::owner_all,
              std::filesystem::status(world.disk.path("own")).permissions());
    EXPECT_TRUE(file->name().starts_with(world.disk.path("own/bro")));

    world.disk.setMode("own", 0777);
    static_cast<void>(world.file("hello"));
    EXPECT_EQ(std::filesystem::perms::owner_all,
              std::filesystem::status(world.disk.path("own")).permissions());
}

TEST(PrivateDownloads, refuseAPlantedFolder) {
    ScratchFolder disk;
    disk.addFolder("elsewhere");
    disk.addText("elsewhere/bro1.tmp", "kept");
    disk.addLink("own", disk.path("elsewhere"));
    PrivateDownloads downloads(disk.path("own"));
    downloads.removeLeftOvers("bro", ".tmp");
    EXPECT_FALSE(downloads.create("bro"));
    EXPECT_EQ("kept", contentOf(disk.path("elsewhere/bro1.tmp")));

    constexpr uid_t kStranger = 64001;
    const std::string strangers = disk.path("elsewhere");
    const bool planted = ::chown(strangers.c_str(), kStranger, kStranger) == 0; // by the administrator only
    EXPECT_FALSE(planted && PrivateDownloads(strangers).create("bro")) << "a folder of somebody else";
}

TEST(PrivateDownloads, neverFollowALinkAmongLeftOvers) {
    World world;
    world.disk.addText("precious", "kept");
    world.disk.addFolder("own");
    world.disk.addLink("own/bro2.tmp", world.disk.path("precious"));
    world.disk.addFolder("own/bro3.tmp");
    world.downloads.removeLeftOvers("bro", ".tmp");
    EXPECT_EQ((std::vector<std::string>{"own", "own/bro3.tmp", "precious"}), world.disk.tree());
    EXPECT_EQ("kept", contentOf(world.disk.path("precious")));
}

TEST(PrivateDownloads, holdTheOpenFileWhateverStandsUnderItsName) {
    World world;
    const std::string program = contentOf(BROVIN_INSTALLER);
    ::setenv("BROVIN_MARK", world.disk.path("mark").c_str(), 1);
    const auto file = world.file(program);
    world.disk.addText("evil", "#!/bin/sh\n");
    std::filesystem::rename(file->name(), world.disk.path("own/moved"));
    std::filesystem::create_symlink(world.disk.path("evil"), file->name());
    EXPECT_EQ(program.size(), file->size());
    EXPECT_TRUE(file->alsoNamed(".exe"));
    EXPECT_TRUE(program == contentOf(file->name() + ".exe"));
    const int leaked = ::open("/dev/null", O_RDONLY); // NOLINT(android-cloexec-open): what a library may do
    EXPECT_TRUE(file->startInstaller());
    EXPECT_TRUE(world.appears("mark")) << "it runs, and inherits no descriptor but the standard three";
    ::close(leaked);
    EXPECT_EQ(0U, static_cast<unsigned>(std::filesystem::status(world.disk.path("evil")).permissions() &
                                        std::filesystem::perms::owner_exec));
}

TEST(PrivateDownloads, startOnlyWhatIsAnInstaller) {
    World world;
    for (const std::string& content :
         {std::string("<html>"), std::string(), std::string("#!/bin/sh\nexit 0\n"),
          std::string("MZ and more"), std::string(5000, 'x')})
        EXPECT_FALSE(world.file(content)->startInstaller()) << content.substr(0, 10);
    const auto broken = world.file("\x7f"
                                   "ELF and nothing else");
    const auto started = broken->startInstaller();
    ASSERT_FALSE(started);
    EXPECT_EQ("Exec format error", started.failure().reason);
}

TEST(PrivateDownloads, handAPackageToTheDesktop) {
    World world;
    world.disk.addText("bin/xdg-open", "#!/bin/sh\necho \"$1\" > " + world.disk.path("opened") + "\n");
    world.disk.setMode("bin/xdg-open", 0755);
    const std::string before = ::getenv("PATH");
    ::setenv("PATH", (world.disk.path("bin") + ":" + before).c_str(), 1);
    const auto file = world.file("!<arch>\ndebian-binary   1342943816  0");
    EXPECT_TRUE(file->startInstaller());
    EXPECT_TRUE(world.appears("opened"));
    ::setenv("PATH", world.disk.path("none").c_str(), 1);
    EXPECT_FALSE(file->startInstaller()) << "a desktop without an installer";
    ::setenv("PATH", before.c_str(), 1);
    EXPECT_TRUE(std::filesystem::exists(file->name() + ".exe.deb")) << "the name tells what it is";
}

TEST(PrivateDownloads, tellThatTheDiskIsFull) {
    World world;
    auto file = *world.downloads.create("bro");
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    rlimit before{};
    ::getrlimit(RLIMIT_FSIZE, &before);
    const rlimit tight{1 << 20, before.rlim_max};
    ::setrlimit(RLIMIT_FSIZE, &tight);
    bool written = true;
    for (int i = 0; i < 4096 && written; ++i)
        written = static_cast<bool>(file->append(std::string(1024, 'x')));
    ::setrlimit(RLIMIT_FSIZE, &before);
    std::signal(SIGXFSZ, handler);
    EXPECT_FALSE(written);
    file->remove();
    EXPECT_EQ(std::vector<std::string>{"own"}, world.disk.tree());
}

TEST(SodiumKey, knowsTheMakersSignature) {
    const ScratchFolder disk;
    const auto open = update_server::makeKeys(disk.path("secret"));
    ASSERT_TRUE(open);
    EXPECT_FALSE(update_server::makeKeys(disk.path("secret"))) << "a key is never overwritten";
    disk.addText("setup", "hello");
    const auto text = update_server::statementAbout(
        disk.path("setup"), {update::Kind::Program, "setup", "2.8.0", "2026-11-21"}, disk.path("secret"));
    ASSERT_TRUE(text);
    const auto statement = update::statementOf(*text);
    ASSERT_TRUE(statement);
    const SodiumKey key(*open);
    EXPECT_TRUE(key.fits(statement->signedText, statement->signature));
    EXPECT_EQ(statement->claim.sha512, key.sha512("hello"));
    EXPECT_EQ(5U, statement->claim.size);
    EXPECT_FALSE(key.fits(statement->signedText + " ", statement->signature));
    EXPECT_FALSE(key.fits(statement->signedText, ""));
    EXPECT_FALSE(key.fits(statement->signedText, statement->signature + "AA"));

    const auto other = update_server::makeKeys(disk.path("other"));
    EXPECT_FALSE(SodiumKey(*other).fits(statement->signedText, statement->signature));
    EXPECT_FALSE(SodiumKey("").present());
    const SodiumKey broken("not a key");
    EXPECT_TRUE(broken.present());
    EXPECT_FALSE(broken.fits(statement->signedText, statement->signature)) << "nothing fits a broken key";
}

TEST(SodiumKey, hashesAFileAsTheMakerDoes) {
    World world;
    const auto file = world.file("abc");
    const auto hash = file->sha512([] { return true; });
    ASSERT_TRUE(hash);
    EXPECT_EQ("ddaf35a193617abacc417349ae20413112e6fa4e89a97ea20a9eeee64b55d39a"
              "2192992a274fc1a836ba3c23a3feebbd454d4423643ce80e2a9ac94fa54ca49f",
              *hash);
}

} // namespace
} // namespace brovin::net
