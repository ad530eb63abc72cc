#include "cleaner/cleaner_world.h"
#include "cleaner/folder_guard.h"
#include "cleaner/folder_identity.h"
#include "cleaner/keep_entry.h"

#include <gtest/gtest.h>

namespace brovin::cleaner {
namespace {

using Paths = std::vector<std::string>;

TEST(KeepEntry, isANameOrAFullPath) {
    const std::pair<const char*, const char*> cases[] = {
        {"thumbs.db", "thumbs.db"},
        {"/a/b/", "/a/b"},
        {"//a/./b", "/a/b"},
        {"/", "/"},
        {"icon\r", "icon?"},
        {"", ""},
        {".", ""},
        {"..", ""},
        {"a/b", ""},
        {"/a/../b", ""},
        {"./a", ""},
    };
    for (const auto& [line, entry] : cases)
        EXPECT_EQ(entry, keepEntry(line)) << line;
}

TEST(KeepRules, leaveAloneWhatIsKeptWithAllThatIsInIt) {
    const struct {
        const char* kept;
        Paths deleted;
        const char* why;
    } cases[] = {
        {"other", {"/D/junk", "/D/a/Junk", "/D/b/junk"}, "not there"},
        {"junk", {}, "a name, wherever it is"},
        {"/d/a/junk", {"/D/junk", "/D/b/junk"}, "an entry, in lower case"},
        {"/d/a", {"/D/junk", "/D/b/junk"}, "a folder, with what is in it"},
        {"a", {"/D/junk", "/D/b/junk"}, "folders of a name, too"},
        {"/d", {}, "the watched folder itself"},
        {"/", {}, "one around it"},
        {"inside", {"/D/junk", "/D/a/Junk"}, "lies in a folder that would go whole"},
        {"/d/b/junk/inside", {"/D/junk", "/D/a/Junk"}, "the same, by its path"},
        {"/d/b/junk/gone", {"/D/junk", "/D/a/Junk", "/D/b/junk"}, "no longer there"},
        {"d/a", {"/D/junk", "/D/a/Junk", "/D/b/junk"}, "nonsense"},
        {"/d/../d", {"/D/junk", "/D/a/Junk", "/D/b/junk"}, "nonsense"},
    };
    for (const auto& [kept, deleted, why] : cases) {
        CleanerWorld world;
        world.nasty("junk");
        for (const char* file : {"/D/junk", "/D/a/Junk", "/D/b/junk/inside"})
            world.files.addFile(file, 1);
        world.watchedFolders.show({"/D"});
        world.form.lstKeep.add({kept, 0});
        world.form.chkLog.setValue(ui::CheckBox::kOn);
        EXPECT_EQ(ScanOutcome::Done, world.scanRun.runScan());
        EXPECT_EQ(deleted, world.files.deleted) << kept << ": " << why;
        const auto log = world.folder.lines("deletions.log");
        const bool told = std::any_of(log.begin(), log.end(), [](const std::string& line) {
            return line.find("Keep List") != std::string::npos;
        });
        EXPECT_EQ(world.sweep.keeps(), told) << kept;
        EXPECT_EQ(deleted.size() < 3, world.sweep.kept > 0) << kept;
    }
}

TEST(KeepList, isStoredBesideTheOthersAndSurvivesNonsense) {
    CleanerWorld world;
    world.settings.values[{"keeplist.txt", "Number"}] = "4";
    world.settings.values[{"keeplist.txt", "Entry1"}] = "a/../b";
    world.settings.values[{"keeplist.txt", "Entry3"}] = "\xff\xfe";
    world.settings.values[{"keeplist.txt", "Entry4"}] = "Keep Me";
    world.cleaner.keepList.load();
    EXPECT_EQ((Paths{"a/../b", "\xff\xfe", "keep me"}), CleanerWorld::texts(world.form.lstKeep));
    world.dialogs.typed = {"not/whole", "/Share/Mine/", std::nullopt};
    world.form.cmdAddKeep.click();
    EXPECT_EQ("not/whole", world.dialogs.inputs[1].text) << "asked again with what was typed";
    EXPECT_EQ("/share/mine", world.settings.read("keeplist.txt", "Entry4"));
    world.files.addFile("/d/junk", 1);
    world.nasty("junk");
    world.watchedFolders.show({"/d"});
    EXPECT_EQ(ScanOutcome::Done, world.scanRun.runScan());
    EXPECT_EQ(Paths{"/d/junk"}, world.files.deleted);
}

TEST(FolderGuard, knowsWhatNobodySweepsByMistake) {
    const fakes::FakeLandmarks landmarks;
    const std::pair<const char*, FolderRisk> cases[] = {
        {"/", FolderRisk::Root},
        {"/home/jo", FolderRisk::Home},
        {"/home/jo/", FolderRisk::Home},
        {"/home/al", FolderRisk::OthersHome},
        {"/home", FolderRisk::System},
        {"/usr/share", FolderRisk::System},
        {"/var", FolderRisk::System},
        {"/var/library", FolderRisk::None},
        {"/home/jo/.data/b/x", FolderRisk::Program},
        {"/mnt/stick", FolderRisk::Disk},
        {"/mnt/stick/music", FolderRisk::None},
        {"/home/jo/Music", FolderRisk::None},
    };
    for (const auto& [path, risk] : cases) {
        EXPECT_EQ(risk, folderRisk(path, landmarks)) << path;
        EXPECT_EQ(risk == FolderRisk::None, !riskText(risk));
    }
}

TEST(FolderGuard, asksBeforeSuchAFolderIsAdded) {
    CleanerWorld world;
    world.dialogs.folders = {"/home/jo", "/home/jo", "/home/jo/Music"};
    world.dialogs.answers = {platform::Button::No, platform::Button::Yes};
    world.form.cmdAddFolder.click();
    EXPECT_EQ(0, world.form.lstFolders.count());
    EXPECT_NE(std::string::npos, world.dialogs.boxes.at(0).text.find("home"));
    world.form.cmdAddFolder.click();
    EXPECT_EQ(1, world.form.lstFolders.count());
    world.form.cmdAddFolder.click();
    EXPECT_EQ(2, world.form.lstFolders.count());
    EXPECT_EQ(2U, world.dialogs.boxes.size());
}

TEST(FolderIdentity, isNotThatOfALaterFolderWithItsNumber) {
    const platform::FolderIdentity added{1, 7, "/a:b@c/share", "10.5", "disk"};
    platform::FolderIdentity found = added;
    const std::string stored = identityText(added);
    EXPECT_TRUE(isTheSame(stored, found));
    found.born = "11.0";
    EXPECT_FALSE(isTheSame(stored, found));
    EXPECT_FALSE(isOnAnotherDisk(stored, found)) << "it is told, and no question";
    EXPECT_TRUE(isTheSame("1/disk:7:/a:b@c/share", found)) << "of what was stored without it";
    found.born = "";
    EXPECT_TRUE(isTheSame(stored, found)) << "not told today";
}

TEST(FolderIdentity, isAskedAboutOnceAfterAnotherDisk) {
    CleanerWorld world;
    world.files.addFile("/share/junk", 1);
    world.nasty("junk");
    world.dialogs.folders = {"/share"};
    world.form.cmdAddFolder.click();
    const auto replaced = [&world] { // another disk, on which everything is another thing
        world.files.remove("/share");
        ++world.files.device;
        world.files.addFile("/share/junk", 1);
    };
    replaced();
    world.dialogs.answers = {platform::Button::No};
    for (int run = 0; run < 2; ++run) {
        EXPECT_EQ(ScanOutcome::Done, world.scanRun.runScan());
        world.scanRun.tellOfStrangers();
    }
    ASSERT_EQ(2U, world.dialogs.boxes.size());
    EXPECT_NE(std::string::npos, world.dialogs.boxes[0].text.find("Is it the right one?"));
    EXPECT_EQ(std::string::npos, world.dialogs.boxes[1].text.find("Is it the right one?")) << "asked once";
    EXPECT_TRUE(world.files.deleted.empty());

    world.dialogs.folders = {"/share"};
    world.form.cmdAddFolder.click();
    EXPECT_EQ(ScanOutcome::Done, world.scanRun.runScan());
    EXPECT_EQ(Paths{"/share/junk"}, world.files.deleted) << "added again, it is the right one";
    EXPECT_TRUE(world.sweep.strangers.empty());

    replaced();
    world.dialogs.answers = {platform::Button::Yes, platform::Button::Yes};
    EXPECT_EQ(ScanOutcome::Done, world.scanRun.runScan());
    world.scanRun.tellOfStrangers();
    EXPECT_EQ(ScanOutcome::Done, world.scanRun.runScan());
    EXPECT_EQ(2U, world.files.deleted.size()) << "and so it is after a Yes";
}

TEST(FolderIdentity, isAskedAboutOnceAfterItsDiskWasFormattedAnew) {
    CleanerWorld world;
    const struct {
        const char* name;
        std::uint64_t device;
        bool anew, asks, told;
        const char* why;
    } runs[] = {
        {"one", 1, false, false, false, "as it was added"},
        {"one", 2, false, false, false, "hung in elsewhere"},
        {"one", 2, true, false, true, "another folder on the same disk"},
        {"two", 1, true, true, false, "formatted anew under the same number"},
        {"two", 1, false, false, true, "asked once"},
        {"two", 3, false, false, true, "and so after the next start"},
    };
    world.files.diskName = "one";
    world.files.addFile("/share/other", 1);
    world.dialogs.folders = {"/share"};
    world.form.cmdAddFolder.click();
    for (const auto& [name, device, anew, asks, told, why] : runs) {
        world.files.diskName = name;
        world.files.device = device;
        if (anew) {
            world.files.remove("/share");
            world.files.addFile("/share/other", 1);
        }
        world.watchedFolders.load();
        world.dialogs.boxes.clear();
        world.dialogs.answers = {platform::Button::No};
        world.scanRun.runScan();
        world.scanRun.tellOfStrangers();
        ASSERT_EQ(asks || told ? 1U : 0U, world.dialogs.boxes.size()) << why;
        EXPECT_EQ(asks, !world.dialogs.boxes.empty() &&
                            world.dialogs.boxes[0].text.ends_with("Is it the right one?"))
            << why;
    }
}

} // namespace
} // namespace brovin::cleaner
