#include "program_world.h"

#include <gtest/gtest.h>

namespace brovin::app {
namespace {

using platform::Button;

TEST(Program, scansFromAnEmptyStoreToACleanFolder) {
    ProgramWorld world;
    world.files.addFile("/Share/Photos/Thumbs.DB", 6000);
    world.files.addFile("/Share/Photos/beach.jpg", 90000);
    world.files.addFile("/Share/Photos/Old/._beach.jpg", 100);
    world.files.addFile("/Share/Icon\r", 50);
    world.files.addFile("/Share/__MACOSX/junk", 20480);
    world.files.addFile("/Elsewhere/Thumbs.DB", 1);

    ASSERT_TRUE(world.program.Form_Load());
    EXPECT_FALSE(world.form.window.visible()) << "it lives behind its icon";
    EXPECT_TRUE(world.tray.shown);

    world.dialogs.folders = {"/Share"};
    world.form.cmdAddFolder.click();
    world.dialogs.typed = {"Thumbs.db", "__macosx"};
    world.form.cmdAddFile.click();
    world.form.cmdAddFile.click();
    world.form.cmdNuke.click();

    EXPECT_EQ((std::vector<std::string>{"/Elsewhere", "/Elsewhere/Thumbs.DB", "/Share", "/Share/Photos",
                                        "/Share/Photos/Old", "/Share/Photos/beach.jpg"}),
              world.files.tree());
    EXPECT_EQ((std::vector<std::string>{
                  "------------------------------------------------",
                  "m55(10:05:00,21 November 2026)",
                  "m62(/Share/icon?,%2)",
                  "m63(20,/Share/__macosx)",
                  "m62(/Share/photos/thumbs.db,%2)",
                  "m62(/Share/photos/old/._beach.jpg,%2)",
                  "m56(4,33)",
                  "m57(10:05:00,21 November 2026)",
              }),
              world.folder.lines("deletions.log"));
    EXPECT_EQ("Brovin v2.7.106 - 4 (33 KB) nasties since 21 November 2026.", world.form.window.caption());
    EXPECT_EQ("m15(4,, Fool)", world.dialogs.boxes.back().text);
    EXPECT_EQ("Last scanned on 21 November 2026 10:05:00", world.tray.tips.back());

    world.form.cmdNuke.click();
    EXPECT_EQ("m17(, Fool,%2)", world.dialogs.boxes.back().text) << "a second scan finds nothing";
    EXPECT_EQ("4", world.settings.setting("TotalNuked"));
}

TEST(Program, tellsInThePreviewWhatAScanLeavesOut) {
    ProgramWorld world;
    for (int i = 0; i < 503; ++i)
        world.files.addFolder("/Share/" + std::to_string(i));
    ASSERT_TRUE(world.program.Form_Load());
    world.dialogs.folders = {"/Share"};
    world.form.cmdAddFolder.click();
    world.dialogs.typed = {"Thumbs.db"};
    world.form.cmdAddFile.click();
    world.form.cmdPreview.click();
    EXPECT_TRUE(world.program.frmPreview().lblFound.caption().ends_with(
        "Subfolders left out, being more than 501 in one folder: 2."))
        << world.program.frmPreview().lblFound.caption();
}

TEST(Program, remembersItsListsAndOptionsOverARestart) {
    ProgramWorld first;
    first.files.addFolder("/Share");
    ASSERT_TRUE(first.program.Form_Load());
    first.dialogs.folders = {"/Share"};
    first.form.cmdAddFolder.click();
    first.dialogs.typed = {"Thumbs.db"};
    first.form.cmdAddFile.click();
    first.form.chkForce.setValue(0);
    first.form.imgTabs[2].click();

    ProgramWorld second;
    second.settings.values = first.settings.values;
    second.files.addFile("/Share/thumbs.db");
    ASSERT_TRUE(second.program.Form_Load());
    EXPECT_EQ("/share", second.form.lstFolders.items().at(0).text)
        << "shown in lower case from the next load on";
    EXPECT_FALSE(second.form.chkForce.checked());
    EXPECT_TRUE(second.form.picTab[2].visible());
    EXPECT_FALSE(second.form.picTab[0].visible());
    second.form.cmdNuke.click();
    EXPECT_EQ((std::vector<std::string>{"/Share/thumbs.db"}), second.files.deleted)
        << "found by its true spelling";
}

TEST(Program, answersWhenItsMascotIsPoked) {
    ProgramWorld world;
    ASSERT_TRUE(world.program.Form_Load());
    for (const auto& [draw, text] : {std::pair{0.0, "m44(, Fool,%2)"}, std::pair{0.999, "m49(, Fool,%2)"}}) {
        world.random.draws = {draw};
        world.form.imgBrovin.click();
        EXPECT_EQ(text, world.dialogs.boxes.back().text);
    }
}

TEST(Program, asksNobodyForUpdatesWhereOthersBringThem) {
    ProgramWorld world(false);
    world.settings.set("UpdateOnStart", "1");
    world.folder.files["other.blp"] = fakes::testLanguage() + "text.updatesElsewhere=Ask the others\n";
    ASSERT_TRUE(world.program.Form_Load());
    world.clock.time += std::chrono::hours(24);
    world.form.Timer1.tick();
    world.form.cmdUpdate.click();
    EXPECT_EQ("", world.settings.setting("LastUpdateCheck")) << "no check has been made";
    EXPECT_EQ("1", world.settings.setting("UpdateOnStart")) << "kept for a program that can";
    EXPECT_FALSE(world.form.chkUpdate.checked());
    for (const ui::Control* control : std::initializer_list<const ui::Control*>{
             &world.form.chkUpdate, &world.form.cmbCheck, &world.form.cmdUpdate}) {
        EXPECT_FALSE(control->enabled()) << control->name();
        EXPECT_NE(std::string::npos, control->toolTip().find("asks nobody")) << control->toolTip();
    }
    EXPECT_EQ("My updates come with your system's", world.form.cmdUpdate.caption());
    world.form.lstLang.select(1);
    EXPECT_EQ("Ask the others", world.form.cmdUpdate.caption()) << "in each language";
}

TEST(Program, leavesOnlyWhenToldTo) {
    ProgramWorld world;
    ASSERT_TRUE(world.program.Form_Load());
    world.dialogs.answers = {Button::No};
    world.form.mPopExit.click();
    EXPECT_FALSE(world.shell.ended);
    world.form.window.setVisible(true);
    world.form.window.close();
    EXPECT_FALSE(world.form.window.visible());
    EXPECT_FALSE(world.shell.ended);

    world.dialogs.answers = {Button::Yes};
    world.form.cmdExit.click();
    EXPECT_TRUE(world.shell.ended);
    EXPECT_FALSE(world.tray.shown);
}

TEST(Program, goesOnUnharmedWhenItIsToEndDuringAScan) {
    for (const Button stop : {Button::No, Button::Yes}) {
        ProgramWorld world;
        for (const std::string path : {"/Share/a/junk", "/Share/b/junk"})
            world.files.addFile(path);
        world.settings.values[{"filelist.txt", "Number"}] = "1";
        world.settings.values[{"filelist.txt", "Entry1"}] = "junk";
        ASSERT_TRUE(world.program.Form_Load());
        world.dialogs.folders = {"/Share"};
        world.form.cmdAddFolder.click();
        world.pump.onPump = [&] {
            world.pump.onPump = nullptr;
            world.dialogs.answers = {Button::Yes, stop};
            world.form.cmdExit.click();
        };
        world.form.cmdNuke.click();
        EXPECT_FALSE(world.shell.ended);
        EXPECT_TRUE(world.tray.shown);
        ASSERT_EQ(3U, world.dialogs.boxes.size()) << "leave, stop, the result";
        EXPECT_EQ(stop == Button::Yes ? "m17(, Fool,%2)" : "m15(2,, Fool)", world.dialogs.boxes[2].text);
        EXPECT_EQ(stop == Button::Yes ? 0U : 2U, world.files.deleted.size());
        EXPECT_TRUE(world.form.sbStatus.panel().starts_with("m23("));

        world.form.Timer1.tick();
        EXPECT_TRUE(world.tray.shown) << "the icon is kept";
        world.dialogs.answers = {Button::Yes};
        world.form.cmdExit.click();
        EXPECT_TRUE(world.shell.ended);
    }
}

TEST(Program, offersToStopTheScanWhenItsWindowIsPutAway) {
    for (const Button stop : {Button::No, Button::Yes}) {
        ProgramWorld world;
        world.files.addFile("/Share/a/b");
        ASSERT_TRUE(world.program.Form_Load());
        world.dialogs.folders = {"/Share"};
        world.form.cmdAddFolder.click();
        world.form.window.setVisible(true);
        world.pump.onPump = [&] {
            world.pump.onPump = nullptr;
            world.dialogs.answers = {stop};
            world.form.window.close();
            EXPECT_FALSE(world.form.window.visible()) << "either way";
        };
        world.form.cmdNuke.click();
        ASSERT_EQ(2U, world.dialogs.boxes.size()) << "stop, the result";
        EXPECT_NE(std::string::npos, world.dialogs.boxes[0].text.find("scan is running"));
        const fakes::FakeFileSystem::Asked entered{fakes::FileOperation::Enter, "/Share/a"};
        EXPECT_EQ(stop == Button::Yes ? 0 : 1, std::ranges::count(world.files.asked, entered));
    }
}

TEST(Program, hasItsOwnWordsWhereALanguageFileIsSilent) {
    ProgramWorld world;
    ASSERT_TRUE(world.program.Form_Load());
    EXPECT_EQ("&Options", world.form.mPopRestore.caption());
    EXPECT_EQ("E&xit...", world.form.mPopExit.caption());
    EXPECT_NE("", world.form.mHelp.caption());
}

} // namespace
} // namespace brovin::app
