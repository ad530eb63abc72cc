#include "cleaner/scan_run.h"

#include "cleaner/cleaner_world.h"

#include <gtest/gtest.h>

namespace brovin::cleaner {
namespace {

using platform::Button;
using Texts = std::vector<std::string>;

/// Watches the folder /Share for "junk" and keeps the log.
struct ScanRunWorld : CleanerWorld {
    ScanRunWorld() {
        nasty("junk");
        files.addFolder("/Share");
        watchedFolders.show({"/Share"});
        form.chkLog.setValue(1);
    }
    [[nodiscard]] Texts log() const { return folder.lines("deletions.log"); }
};

TEST(ScanRun, writesItsLogAndAddsUpItsTotals) {
    ScanRunWorld world;
    world.files.addFile("/Share/Junk", 2'000'000);
    world.files.addFile("/Share/a/JUNK");
    EXPECT_EQ(ScanOutcome::Done, world.scanRun.runScan());
    world.files.addFile("/Share/junk");
    world.scanRun.runScan();
    world.scanRun.runScan();
    const std::string separator(48, '-');
    const std::string header = "m55(10:05:00,21 November 2026)";
    const std::string footer = "m57(10:05:00,21 November 2026)";
    EXPECT_EQ((Texts{separator, header, "m62(/share/junk,%2)", "m62(/share/a/junk,%2)", "m56(2,1,957)",
                     footer, separator, header, "m62(/share/junk,%2)", "m56(1,4)", footer, //
                     separator, header, "m58(%1,%2)"}),
              world.log());
    EXPECT_EQ("3", world.settings.setting("TotalNuked"));
    EXPECT_EQ("1961", world.settings.setting("KB"));
    EXPECT_EQ("21 November 2026 10:05:00", world.settings.setting("LastScanned"));
    EXPECT_EQ("m54(%1,%2)", world.tray.tips.at(0));
    EXPECT_EQ("Last scanned on 21 November 2026 10:05:00", world.tray.tips.at(1));
}

TEST(ScanRun, doesItsWorkWithoutALogToo) {
    ScanRunWorld refused;
    refused.folder.refusesWriting = true;
    refused.lookOn();
    refused.files.addFile("/Share/junk");
    refused.scanRun.runScan();
    EXPECT_EQ((Texts{"/Share/junk"}), refused.files.deleted);
    EXPECT_TRUE(refused.dialogs.boxes.empty()) << "a log that cannot be opened just gets no lines";
    EXPECT_EQ("1", refused.settings.setting("TotalNuked"));
    EXPECT_NE("", refused.settings.setting("LastScanned"));

    ScanRunWorld unwanted;
    unwanted.form.chkLog.setValue(0);
    unwanted.files.addFile("/Share/junk");
    unwanted.pump.onPump = [&unwanted] { unwanted.form.chkLog.setValue(1); };
    unwanted.scanRun.runScan();
    EXPECT_TRUE(unwanted.folder.files.empty()) << "a log asked for midway has not been opened";
}

TEST(ScanRun, doesNotRunTwiceAtATime) {
    ScanRunWorld world;
    world.files.addFile("/Share/junk");
    world.files.addFile("/Share/a/junk");
    int entered = 0;
    world.pump.onPump = [&] {
        ++entered;
        EXPECT_EQ(ScanOutcome::Busy, world.scanRun.runScan());
        world.scanRun.cmdNuke_Click();
    };
    int finished = 0;
    world.scanRun.finished = [&] {
        ++finished;
        EXPECT_FALSE(world.scan.busy()) << "the update check may ask the user things";
        EXPECT_EQ(0, world.scanLock.holders);
    };
    world.scanRun.runScan();
    EXPECT_EQ(3, entered) << "junk, a and junk";
    EXPECT_EQ(1, finished);
    EXPECT_EQ(6U, world.log().size()) << "one header, two deletions, one summary";
    EXPECT_EQ("2", world.settings.setting("TotalNuked"));
}

TEST(ScanRun, keepsTheUserFromEditingTheListsMeanwhile) {
    ScanRunWorld world;
    world.files.addFile("/Share/precious");
    world.form.lstFiles.select(0);
    world.form.lstFolders.select(0);
    world.pump.onPump = [&world] {
        world.dialogs.typed = {"precious"};
        world.dialogs.folders = {"/Elsewhere"};
        world.dialogs.answers = {Button::Yes, Button::Yes};
        world.nastyFiles.cmdAddFile_Click();
        world.nastyFiles.cmdRemoveFile_Click();
        world.watchedFolders.cmdAddFolder_Click();
        world.watchedFolders.cmdRemoveFolder_Click();
    };
    world.scanRun.runScan();
    EXPECT_EQ((Texts{"junk"}), CleanerWorld::texts(world.form.lstFiles));
    EXPECT_EQ((Texts{"/share"}), CleanerWorld::texts(world.form.lstFolders));
    EXPECT_TRUE(world.dialogs.inputs.empty() && world.dialogs.prompts.empty() && world.dialogs.boxes.empty());
}

TEST(ScanRun, goesOnAfterAWatchedFolderThatIsGoneOrNotToBeToldFromAnother) {
    ScanRunWorld world;
    for (const std::string path : {"/SHARE/junk", "/Share/junk", "/Good/junk"})
        world.files.addFile(path);
    // Without a stored spelling "/share" fits two folders; "/gone" is none.
    const char* entries[] = {"/gone", "/share", "/good"};
    world.settings.values[{"foldlist.txt", "Number"}] = "3";
    for (int i = 0; i < 3; ++i)
        world.settings.values[{"foldlist.txt", "Entry" + std::to_string(i + 1)}] = entries[i];
    world.watchedFolders.load();
    world.lookOn();
    world.dialogs.answers = {Button::Yes, Button::Yes};
    world.scanRun.runScan();
    EXPECT_EQ((Texts{"/Good/junk"}), world.files.deleted);
    ASSERT_EQ(2U, world.dialogs.boxes.size());
    EXPECT_EQ("m64(/gone/,%2)", world.dialogs.boxes[0].text);
    EXPECT_EQ("m64(/share/,%2)", world.dialogs.boxes[1].text);
}

TEST(ScanRun, sweepsWhatIsLeftOfTheListAtItsTruePath) {
    ScanRunWorld world;
    for (const std::string path : {"/Share/junk", "/Other/junk"})
        world.files.addFile(path);
    world.watchedFolders.show({"/Share", "/Other"});
    world.form.lstFolders.select(1);
    world.dialogs.answers = {Button::Yes};
    world.form.cmdRemoveFolder.click();
    world.scanRun.runScan();
    EXPECT_EQ((Texts{"/Share/junk"}), world.files.deleted);
}

TEST(ScanNow, leavesAloneWhatStandsInTheWatchedFoldersPlace) {
    ScanRunWorld world;
    world.dialogs.folders = {"/Photos"};
    world.files.addFolder("/Photos");
    world.watchedFolders.cmdAddFolder_Click();
    world.watchedFolders.load();
    world.files.remove("/Photos");
    world.files.addFile("/Photos/junk");
    world.files.addFile("/Share/junk");
    world.scanRun.cmdNuke_Click();
    EXPECT_TRUE(world.files.exists("/Photos/junk"));
    EXPECT_FALSE(world.files.exists("/Share/junk")) << "of which nothing is known but its path";
    ASSERT_EQ(2U, world.dialogs.boxes.size());
    EXPECT_NE(std::string::npos, world.dialogs.boxes[1].text.find("/Photos"));

    world.watchedFolders.load(); // what was stored first is known after a restart too
    world.scanRun.runScan();
    EXPECT_TRUE(world.files.exists("/Photos/junk"));
    world.dialogs.folders = {"/Photos"};
    world.watchedFolders.cmdAddFolder_Click();
    world.scanRun.runScan();
    EXPECT_FALSE(world.files.exists("/Photos/junk")) << "added again";
}

TEST(ScanNow, reportsHowManyThingsWereDeleted) {
    const std::pair<int, std::string> cases[] = {
        {0, "m17(, Fool,%2)"}, {1, "m16(, Fool,%2)"}, {2, "m15(2,, Fool)"}};
    for (const auto& [files, report] : cases) {
        ScanRunWorld world;
        for (int i = 0; i < files; ++i)
            world.files.addFile("/Share/" + std::to_string(i) + "/junk");
        world.scanRun.cmdNuke_Click();
        ASSERT_EQ(1U, world.dialogs.boxes.size());
        EXPECT_EQ(report, world.dialogs.boxes[0].text);
        EXPECT_EQ(64, world.dialogs.boxes[0].style);
        EXPECT_EQ(CleanerWorld::at(10, 5), world.scan.lastScanTime);
        EXPECT_EQ(1, world.shell.foregrounds);
        EXPECT_TRUE(world.form.sbStatus.panel().starts_with("m23(21 November 2026 10:05:00,%2). m24("));
    }
}

TEST(ScanNow, refusesWithoutAFolderAndWhileAnotherCopyScans) {
    ScanRunWorld idle;
    idle.watchedFolders.show({});
    idle.scanRun.cmdNuke_Click();
    ASSERT_EQ(1U, idle.dialogs.boxes.size());
    EXPECT_EQ("m13(%1,%2)", idle.dialogs.boxes[0].text);
    EXPECT_EQ("m14(%1,%2)", idle.dialogs.boxes[0].title);
    EXPECT_EQ(16, idle.dialogs.boxes[0].style);

    ScanRunWorld late;
    late.files.addFile("/Share/junk");
    late.scanLock.heldElsewhere = true;
    late.scanRun.cmdNuke_Click();
    ASSERT_EQ(1U, late.dialogs.boxes.size()) << "it says so";
    EXPECT_FALSE(late.scan.busy()) << "the next try is free";

    for (ScanRunWorld* world : {&idle, &late}) {
        EXPECT_TRUE(world->files.deleted.empty());
        EXPECT_TRUE(world->folder.files.empty()) << "no log";
        EXPECT_EQ("", world->settings.setting("LastScanned"));
        EXPECT_EQ(platform::DateTime{}, world->scan.lastScanTime);
    }
}

TEST(ScanNow, letsTheCharacterActFirst) {
    ScanRunWorld world;
    world.tables.append(language::PhraseList::AniNukeFiles, "Search|Process");
    world.form.chkAgent.setValue(1);
    world.actor.character = &world.characters.only.sides;
    world.random.draws = {0.6};
    Texts before;
    world.files.addFile("/Share/junk");
    world.pump.onPump = [&] { before = world.characters.only.requests; };
    world.scanRun.cmdNuke_Click();
    EXPECT_EQ((Texts{"show", "play Process"}), before);
    EXPECT_TRUE(world.dialogs.boxes.empty()) << "it tells the result itself too";
}

TEST(ScanRun, stopsBehindTheEntryInWorkAndKeepsItsBooks) {
    ScanRunWorld world;
    for (const std::string path : {"/Share/a/junk", "/Share/b/junk", "/Share/c/junk"})
        world.files.addFile(path);
    int finished = 0;
    world.scanRun.finished = [&finished] { ++finished; };
    world.pump.onPump = [&world] {
        if (!world.files.deleted.empty())
            world.scanRun.cancel();
    };
    EXPECT_EQ(ScanOutcome::Stopped, world.scanRun.runScan());
    EXPECT_EQ((Texts{"/Share/a/junk"}), world.files.deleted);
    EXPECT_EQ("m57(10:05:00,21 November 2026)", world.log().back());
    EXPECT_EQ("1", world.settings.setting("TotalNuked"));
    EXPECT_EQ(0, finished) << "who stops a scan does not wait for a server";
    world.pump.onPump = nullptr;
    EXPECT_EQ(ScanOutcome::Done, world.scanRun.runScan()) << "the next one runs";
    EXPECT_EQ(3U, world.files.deleted.size());
}

TEST(ScanRun, tellsHowManyAreGoneWhileItLasts) {
    ScanRunWorld world;
    world.statistics.updateStatistics();
    const std::string title = world.form.window.caption();
    world.files.addFile("/Share/junk");
    world.files.addFile("/Share/a/b");
    Texts titles;
    world.pump.onPump = [&] {
        world.clock.sinceStart += std::chrono::milliseconds(200); // not every change is shown
        titles.push_back(world.form.window.caption() + "|" + world.tray.tips.back());
        EXPECT_EQ(title, world.form.sbScore.panel()) << "no progress among the statistics";
        EXPECT_TRUE(world.form.cmdStopScan.visible());
    };
    EXPECT_FALSE(world.form.sbProgress.visible());
    world.scanRun.runScan();
    const std::string begun = "Brovin - m54(%1,%2)|m54(%1,%2)";
    EXPECT_EQ(
        (Texts{begun, begun, "Brovin - m54(%1,%2) 1 gone so far|Folders: 1, entries: 2, gone: 1\n/share/"}),
        titles);
    EXPECT_EQ("Folders: 1, entries: 2, gone: 1", world.form.sbProgress.panel());
    EXPECT_FALSE(world.form.sbProgress.visible() || world.form.cmdStopScan.visible());
    EXPECT_NE(title, world.form.window.caption());
    EXPECT_TRUE(world.form.window.caption().starts_with("Brovin v2.7.106 - 1 "));
}

TEST(ScanNow, takesADoubleClickForOneAndLetsItsResultBeTold) {
    ScanRunWorld world;
    world.form.chkAgent.setValue(1);
    world.actor.character = &world.characters.only.sides;
    world.files.addFile("/Share/junk");
    world.scanRun.cmdNuke_Click();
    world.characters.only.requests.clear();
    world.clock.sinceStart += std::chrono::milliseconds(400);
    world.scanRun.cmdNuke_Click();
    EXPECT_TRUE(world.characters.only.requests.empty());

    world.clock.sinceStart += std::chrono::milliseconds(1600);
    world.characters.only.isVisible = world.characters.only.isBusy = true; // "One nasty deleted …"
    world.scanRun.cmdNuke_Click();
    EXPECT_EQ((Texts{"show", "show", "speak m17(, Fool,%2)"}), world.characters.only.requests);
    world.characters.only.isBusy = false;
    world.actor.prepare();
    EXPECT_EQ("stop", world.characters.only.requests.back());
}

} // namespace
} // namespace brovin::cleaner
