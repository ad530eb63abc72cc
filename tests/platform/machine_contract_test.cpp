#include "fakes/fake_machine.h"
#include "posix/disk_program_folder.h"
#include "posix/flock_scan_lock.h"
#include "posix/ini_settings_store.h"
#include "posix/other_copy.h"
#include "posix/outcome.h"
#include "posix/scratch_folder.h"

#include <gtest/gtest.h>

#include <iterator>
#include <limits>
#include <memory>
#include <optional>

namespace brovin {
namespace {

using platform::OpenMode;
using posix::reasonOf;
using posix::ScratchFolder;
using Names = std::vector<std::string>;
constexpr std::size_t kAnySize = std::numeric_limits<std::size_t>::max();

/// Runs each case on the part of the machine that tests use and on the one that users have.
template <class World>
struct OnBoth : testing::Test {
    World world;
};

struct SettingsInMemory {
    fakes::FakeSettingsStore store;
    void restart() {}
    void refuse(bool refuses) { store.refuses = refuses; }
};
struct SettingsOnDisk {
    ScratchFolder disk;
    posix::IniSettingsStore store{disk.path("Brovin/Brovin.conf")};
    void restart() {
        std::destroy_at(&store);
        std::construct_at(&store, disk.path("Brovin/Brovin.conf"));
    }
    void refuse(bool refuses) const { // an administrator too
        if (refuses)
            disk.addFolder("Brovin/Brovin.conf.new/in the way");
        else
            std::filesystem::remove_all(disk.path("Brovin/Brovin.conf.new"));
    }
};
using SettingsWorlds = testing::Types<SettingsInMemory, SettingsOnDisk>;
template <class World>
using SettingsStoreContract = OnBoth<World>;
TYPED_TEST_SUITE(SettingsStoreContract, SettingsWorlds);

bool store(platform::SettingsStore& settings, const char* section, const std::string& key,
           const std::string& value) {
    const platform::SettingsEntry entry{key, value};
    return settings.write(section, {&entry, 1});
}

TYPED_TEST(SettingsStoreContract, keepsEveryTextOverARestart) {
    const std::string kTexts[] = {"plain",
                                  "a, b; c",
                                  "C:\\temp",
                                  "\"quoted\"",
                                  "two\nlines\r\t",
                                  " blanks ",
                                  "",
                                  "Z\u00fcrich",
                                  "@Invalid()",
                                  "100%",
                                  "[x]=y",
                                  "a\\x41",
                                  "#remark",
                                  "\U0001F600 ok",
                                  ";",
                                  "\xFF\xFE no text",
                                  "\001f\x7F",
                                  std::string("n\0l", 3),
                                  "@@",
                                  "@String(x)"};
    platform::SettingsStore& settings = this->world.store;
    for (std::size_t i = 0; i < std::size(kTexts); ++i) {
        EXPECT_TRUE(store(settings, "filelist.txt", "Entry" + std::to_string(i), kTexts[i]));
        EXPECT_TRUE(store(settings, "odd/\u00e9[]", "=\u20ac" + kTexts[i], "key"));
    }
    this->world.restart();
    for (std::size_t i = 0; i < std::size(kTexts); ++i) {
        EXPECT_EQ(kTexts[i], settings.read("filelist.txt", "Entry" + std::to_string(i)));
        EXPECT_EQ("key", settings.read("odd/\u00e9[]", "=\u20ac" + kTexts[i]));
    }
    EXPECT_EQ(std::nullopt, settings.read("filelist.txt", "Entry99"));
    EXPECT_EQ(std::nullopt, settings.read("Settings", "Entry0")) << "a key belongs to its section";
}

TYPED_TEST(SettingsStoreContract, storesAllOfAWriteOrNothing) {
    platform::SettingsStore& settings = this->world.store;
    const platform::SettingsEntry both[] = {{"A", "1"}, {"B", "2"}};
    this->world.refuse(true);
    EXPECT_FALSE(settings.write("Settings", both));
    EXPECT_FALSE(settings.write("Settings", both)) << "the same again";
    EXPECT_EQ(std::nullopt, settings.read("Settings", "A"));
    this->world.refuse(false);
    EXPECT_TRUE(settings.write("Settings", both));
    EXPECT_TRUE(store(settings, "Settings", "A", "3"));
    EXPECT_EQ("3", settings.read("Settings", "A"));
    EXPECT_EQ("2", settings.read("Settings", "B"));
}

struct FolderInMemory {
    fakes::FakeProgramFolder folder;
    void put(const std::string& name, const std::string& content) { folder.files[name] = content; }
    void refuse(const std::string& /*name*/) { folder.refusesWriting = true; }
};
struct FolderOnDisk {
    ScratchFolder disk;
    posix::DiskProgramFolder folder{{.installed = disk.path("installed"), .own = disk.path("own/data")}};
    void put(const std::string& name, const std::string& content) const {
        disk.addText("own/data/" + name, content);
    }
    void refuse(const std::string& name) const { // stand in the way, for an administrator too
        disk.addFolder("own/data/" + name + ".new/in the way");
        std::filesystem::remove(disk.path("own/data/" + name));
        disk.addFolder("own/data/" + name);
    }
};
using FolderWorlds = testing::Types<FolderInMemory, FolderOnDisk>;
template <class World>
using ProgramFolderContract = OnBoth<World>;
TYPED_TEST_SUITE(ProgramFolderContract, FolderWorlds);

TYPED_TEST(ProgramFolderContract, listsByTheEndingInAnyLetters) {
    for (const char* name : {"b.lng", "a.lng", "a.LNG", "lng", "c.lng.old", "Z.lng", ".lng"})
        this->world.put(name, "x");
    EXPECT_EQ((Names{".lng", "Z.lng", "a.LNG", "a.lng", "b.lng"}), this->world.folder.list(".lng"));
}

TYPED_TEST(ProgramFolderContract, readsUpToTheLimit) {
    EXPECT_EQ(std::nullopt, this->world.folder.read("file", kAnySize));
    for (const std::size_t size : {std::size_t{1}, std::size_t{200'000}}) {
        const std::string content(size, 'x');
        this->world.put("file", content);
        EXPECT_EQ(content, this->world.folder.read("file", size));
        EXPECT_EQ(std::nullopt, this->world.folder.read("file", size - 1));
    }
}

TYPED_TEST(ProgramFolderContract, writesLinesBehindOthersOrInTheirPlace) {
    platform::ProgramFolder& folder = this->world.folder;
    const auto write = [&](OpenMode mode, const char* line) {
        auto file = folder.openText("log", mode);
        ASSERT_TRUE(file) << file.failure().reason;
        EXPECT_TRUE((*file)->writeLine(line));
    };
    write(OpenMode::Append, "first");
    write(OpenMode::Append, "second");
    EXPECT_EQ("first\r\nsecond\r\n", folder.read("log", kAnySize));
    write(OpenMode::Replace, "third");
    EXPECT_EQ("third\r\n", folder.read("log", kAnySize));
}

TYPED_TEST(ProgramFolderContract, replacesAFileAsAWholeOrSaysWhyNot) {
    platform::ProgramFolder& folder = this->world.folder;
    EXPECT_EQ("", reasonOf(folder.replace("a.blp", "first")));
    EXPECT_EQ("", reasonOf(folder.replace("a.blp", "second")));
    EXPECT_EQ("second", folder.read("a.blp", kAnySize));
    this->world.refuse("b.blp");
    EXPECT_NE("", reasonOf(folder.replace("b.blp", "third")));
    EXPECT_NE("", reasonOf(folder.openText("b.blp", OpenMode::Append)));
}

TYPED_TEST(ProgramFolderContract, takesPlainNamesOnly) {
    this->world.put("sub/file", "inside");
    platform::ProgramFolder& folder = this->world.folder;
    for (const std::string& name :
         {std::string(), std::string("."), std::string(".."), std::string("../../secret"),
          std::string("sub/file"), std::string("/etc/passwd"), std::string("sub\0x", 5)}) {
        EXPECT_EQ(std::nullopt, folder.read(name, kAnySize)) << name;
        EXPECT_FALSE(folder.openText(name, OpenMode::Replace)) << name;
        EXPECT_FALSE(folder.replace(name, "x")) << name;
        EXPECT_EQ("", folder.path(name)) << name;
    }
}

struct LockInMemory {
    fakes::FakeScanLock lock;
    void holdElsewhere(bool held) { lock.heldElsewhere = held; }
    [[nodiscard]] bool freeForOthers() const { return lock.holders == 0; }
};
struct LockOnDisk {
    ScratchFolder disk;
    posix::FlockScanLock lock{disk.path()};
    std::optional<posix::OtherCopy> other;
    void holdElsewhere(bool held) {
        other.reset(); // killed
        if (held) {
            EXPECT_TRUE(other.emplace(disk.path()).holds());
        }
    }
    [[nodiscard]] bool freeForOthers() const { return posix::OtherCopy(disk.path()).holds(); }
};
using LockWorlds = testing::Types<LockInMemory, LockOnDisk>;
template <class World>
using ScanLockContract = OnBoth<World>;
TYPED_TEST_SUITE(ScanLockContract, LockWorlds);

TYPED_TEST(ScanLockContract, isHeldByOneCopyAtATime) {
    platform::ScanLock& lock = this->world.lock;
    {
        const auto hold = lock.tryHold();
        EXPECT_TRUE(hold);
        EXPECT_FALSE(lock.tryHold()) << "the same copy counts too";
        EXPECT_FALSE(this->world.freeForOthers());
    }
    EXPECT_TRUE(this->world.freeForOthers());
    this->world.holdElsewhere(true);
    EXPECT_FALSE(lock.tryHold());
    this->world.holdElsewhere(false);
    EXPECT_TRUE(lock.tryHold());
}

} // namespace
} // namespace brovin
