#include "posix/ini_settings_store.h"

#include "posix/file_lock.h"
#include "posix/scratch_folder.h"

#include <gtest/gtest.h>

#include <sys/wait.h>
#include <unistd.h>

#include <iterator>

namespace brovin::posix {
namespace {

struct Disk {
    ScratchFolder scratch;
    std::string path = scratch.path("Brovin/Brovin.conf");

    void put(const std::string& content) const { scratch.addText("Brovin/Brovin.conf", content); }
    [[nodiscard]] static std::string contentOf(const std::string& path) {
        std::ifstream file(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
};

bool store(IniSettingsStore& settings, const char* section, const std::string& key,
           const std::string& value) {
    const platform::SettingsEntry entry{key, value};
    return settings.write(section, {&entry, 1});
}

TEST(IniSettingsStore, readsWhatEarlierVersionsAndHandsHaveWritten) {
    const Disk disk;
    // The first section is as the toolkit's store of earlier versions wrote it.
    disk.put(
        "\xEF\xBB\xBF[Settings]\nReminder=\"Bed; a, b=c\"\nUser=J\xC3\xB6rg \\\"x\\\" \\\\ "
        "\\xd83d\\xde00\\x41\n"
        "Spaces=\" a \"\nMark=@@Invalid\n%E9t%E9=1\nZero=@String(a\\0\\x62)\n; remark\n"
        "[filelist.txt]\r\nNumber = 1\r\nEntry1=thumbs.db, *.tmp ,x  \nEntry1=last\nEntry2= a \"b \" c \n");
    IniSettingsStore settings(disk.path);
    EXPECT_EQ("Bed; a, b=c", settings.read("Settings", "Reminder"));
    EXPECT_EQ("J\u00f6rg \"x\" \\ \U0001F600A", settings.read("Settings", "User"));
    EXPECT_EQ(" a ", settings.read("Settings", "Spaces"));
    EXPECT_EQ("@Invalid", settings.read("Settings", "Mark"));
    EXPECT_EQ("1", settings.read("Settings", "\u00e9t\u00e9"));
    EXPECT_EQ(std::string("a\0b", 3), settings.read("Settings", "Zero"));
    EXPECT_EQ("1", settings.read("filelist.txt", "Number"));
    EXPECT_EQ("last", settings.read("filelist.txt", "Entry1"));
    EXPECT_EQ("a b c", settings.read("filelist.txt", "Entry2"));
    EXPECT_FALSE(settings.damaged());
    EXPECT_TRUE(store(settings, "filelist.txt", "Number", "2"));
    EXPECT_NE(std::string::npos, Disk::contentOf(disk.path).find("; remark\n")) << "remarks stay";
}

TEST(IniSettingsStore, keepsACopyOfWhatItCannotRead) {
    for (const std::string& damaged :
         {std::string("[Settings]\nForce=0\nConf"), std::string("[Settings]\nForce=0\nX=\0\0\0\n", 25),
          std::string("[Settings]\nForce=0\n[Sett\n"), std::string("[Settings]\nForce=0\n[Sett\nForce=1\n"),
          std::string("[Settings]\nForce=0\n=1\n"), std::string("x\n\xEF\xBB\xBF[Settings]\nForce=0\n")}) {
        const Disk disk;
        disk.put(damaged);
        IniSettingsStore settings(disk.path);
        EXPECT_TRUE(settings.damaged());
        EXPECT_EQ("0", settings.read("Settings", "Force")) << "what can be read is used";
        EXPECT_TRUE(store(settings, "Settings", "Force", "1"));
        EXPECT_EQ(damaged, Disk::contentOf(settings.damagedCopy()));
        EXPECT_FALSE(settings.damaged()) << "what is stored by now is whole";
    }
}

TEST(IniSettingsStore, isThisUsersAloneAndNoFolder) {
    const Disk disk;
    IniSettingsStore settings(disk.path);
    EXPECT_TRUE(store(settings, "Settings", "Force", "1"));
    EXPECT_FALSE(settings.damaged());
    EXPECT_EQ(0600U, disk.scratch.mode("Brovin/Brovin.conf"));
    EXPECT_EQ(0700U, disk.scratch.mode("Brovin"));

    const Disk folder; // stands where the file should be
    folder.scratch.addFolder("Brovin/Brovin.conf");
    IniSettingsStore unreadable(folder.path);
    EXPECT_TRUE(unreadable.damaged()) << "nobody knows what the user has chosen";
    EXPECT_FALSE(store(unreadable, "Settings", "Force", "1"));
}

TEST(IniSettingsStore, seesWhatAnotherProcessHasStored) {
    const Disk disk;
    IniSettingsStore window(disk.path);
    IniSettingsStore console(disk.path);
    for (const char* total : {"1", "2", "3", "4"}) { // as fast as can be: no clock tells them apart
        EXPECT_TRUE(store(console, "Settings", "TotalNuked", total));
        EXPECT_EQ(total, window.read("Settings", "TotalNuked"));
        EXPECT_TRUE(store(window, "Settings", "KB", total));
    }
    EXPECT_EQ("4", console.read("Settings", "KB"));
    std::filesystem::remove(disk.path);
    EXPECT_EQ(std::nullopt, window.read("Settings", "KB"));
}

TEST(IniSettingsStore, losesNothingWhenTwoProcessesWrite) {
    constexpr int kWrites = 200;
    const Disk disk;
    const auto writeAll = [&](const char* key) {
        IniSettingsStore settings(disk.path);
        bool stored = true;
        for (int i = 1; i <= kWrites; ++i)
            stored = store(settings, "Settings", key + std::to_string(i), "x") && stored;
        return stored;
    };
    const pid_t other = fork();
    if (other == 0)
        _exit(writeAll("Theirs") ? 0 : 1);
    EXPECT_TRUE(writeAll("Ours"));
    int status = -1;
    ASSERT_EQ(other, waitpid(other, &status, 0));
    EXPECT_EQ(0, status);
    IniSettingsStore settings(disk.path);
    for (int i = 1; i <= kWrites; ++i)
        for (const char* key : {"Ours", "Theirs"})
            EXPECT_EQ("x", settings.read("Settings", key + std::to_string(i)));
}

TEST(IniSettingsStore, tidiesUpAfterAKilledSaveAndWritesThroughLinks) {
    const Disk disk;
    disk.scratch.addText("dotfiles/brovin.new", "[Sett");
    disk.scratch.addText("dotfiles/brovin.lock", "1234\nforeign\n"); // no stale lock costs time
    disk.scratch.addFolder("Brovin");
    disk.scratch.addLink("Brovin/Brovin.conf", "../dotfiles/brovin");
    {
        const FileLock saving(disk.scratch.path("dotfiles/brovin.lock"), std::chrono::milliseconds(0));
        ASSERT_TRUE(saving.held());
        const IniSettingsStore other(disk.path);
        EXPECT_EQ("[Sett", Disk::contentOf(disk.scratch.path("dotfiles/brovin.new")))
            << "somebody saves just now";
    }
    IniSettingsStore settings(disk.path);
    EXPECT_FALSE(std::filesystem::exists(disk.scratch.path("dotfiles/brovin.new")));
    EXPECT_TRUE(store(settings, "Settings", "Force", "1"));
    EXPECT_TRUE(std::filesystem::is_symlink(disk.path));
    EXPECT_EQ("[Settings]\nForce=1\n", Disk::contentOf(disk.scratch.path("dotfiles/brovin")));
}

} // namespace
} // namespace brovin::posix
