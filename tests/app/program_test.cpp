#include "app/program.h"

#include "fakes/fake_downloads.h"
#include "fakes/fake_machine.h"
#include "fakes/test_language.h"

#include <gtest/gtest.h>

#include <functional>
#include <optional>

namespace brovin::app {
namespace {

using fakes::FakeMachine;
using platform::Button;
using std::chrono::hours;
using std::chrono::minutes;

/// The whole program on a machine in memory.
struct ProgramWorld : FakeMachine, fakes::FakeUpdates {
    explicit ProgramWorld(bool asksForUpdates = true)
        : program({settings, files, landmarks, folder, dialogs, shell, tray, clipboard, characters, logOn,
                   instance, scanLock, regional, letters, clock, random, pump,
                   asksForUpdates ? &machine : nullptr},
                  {"Brovin", 2, 7, 106}, "/opt/brovin") {
        folder.files["default.blp"] = fakes::testLanguage();
        clock.time = std::chrono::local_days(std::chrono::year(2026) / 11 / 21) + hours(10) + minutes(5);
    }
    Program program;
    ui::FrmOptions& form = program.frmOptions();
};

/// The time of day that a picker shows.
std::string hourOf(const ui::Picker& picker) {
    return fakes::FakeRegional().shortTime(picker.value());
}

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

TEST(Program, comesUpWithItsDefaultsOnAFirstStart) {
    ProgramWorld world;
    ASSERT_TRUE(world.program.Form_Load());
    EXPECT_GE(4, world.settings.writes)
        << "what the language sets, and all the rest together: each waits for the disk";
    const ui::FrmOptions& form = world.form;
    for (const ui::CheckBox* box : {&form.chkBackup, &form.chkCheck, &form.chkDotDash, &form.chkForce,
                                    &form.chkIcon, &form.chkIgnoreErrors, &form.chkLog, &form.chkMsgBox,
                                    &form.chkUpdate, &form.chkWord, &form.chkWordMsgBox})
        EXPECT_TRUE(box->checked()) << box->name();
    for (const ui::CheckBox* box : {&form.chkConfirm, &form.chkDude, &form.chkStartWindows})
        EXPECT_FALSE(box->checked()) << box->name();
    EXPECT_EQ("5", form.txtInterval.text());
    EXPECT_TRUE(form.optDaily.value());
    EXPECT_EQ("23:00", world.regional.shortTime(form.dtpBackup.value()));
    EXPECT_EQ("09:15", world.regional.shortTime(form.dtpWord.value()));
    EXPECT_EQ(25, form.picSlide.value());
    EXPECT_EQ("m42(%1,%2)", world.settings.setting("Reminder")) << "the first text is stored at once";
    EXPECT_TRUE(form.picAdd.visible());
    EXPECT_TRUE(world.dialogs.boxes.empty());
}

TEST(Program, endsWithAWordWhenItCannotGoOn) {
    ProgramWorld mute;
    mute.folder.files.clear();
    EXPECT_FALSE(mute.program.Form_Load());
    ASSERT_EQ(1U, mute.dialogs.boxes.size());
    EXPECT_NE("", mute.dialogs.boxes[0].text) << "no language, but not speechless";

    ProgramWorld second;
    second.instance.first = false;
    EXPECT_FALSE(second.program.Form_Load());
    ASSERT_EQ(1U, second.dialogs.boxes.size());
    EXPECT_EQ("m40(, Fool,%2)", second.dialogs.boxes[0].text);
    EXPECT_FALSE(second.tray.shown);
}

TEST(Program, asksWhetherToGoOnAfterAFailingStep) {
    ProgramWorld world;
    world.settings.set("Tab", "99");
    world.dialogs.answers = {Button::Yes};
    EXPECT_TRUE(world.program.Form_Load());
    ASSERT_EQ(1U, world.dialogs.boxes.size());
    EXPECT_TRUE(world.dialogs.boxes[0].title.starts_with("Error "));
    EXPECT_TRUE(world.form.picTab[0].visible());

    ProgramWorld cautious;
    cautious.settings.set("CheckFreq", "99");
    cautious.dialogs.answers = {Button::No};
    EXPECT_FALSE(cautious.program.Form_Load());
    EXPECT_FALSE(cautious.tray.shown);
    EXPECT_EQ("99", cautious.settings.setting("CheckFreq"));
    EXPECT_EQ("1", cautious.settings.setting("UpdateOnStart")) << "restored before";
    EXPECT_EQ("", cautious.settings.setting("Word")) << "nothing is written behind a No";
}

TEST(Program, startsWhateverIsWrittenInItsSettings) {
    using Form = ui::FrmOptions;
    const auto total = [](const Form& f) {
        return std::string(f.window.caption().find("(0 KB)") == std::string::npos ? "some" : "0");
    };
    const struct {
        const char* key;
        const char* nonsense;
        std::string held; ///< what the program holds then
        std::function<std::string(const Form&)> look;
        int questions; ///< whether to try and go on
    } cases[] = {
        {"Force", "yes please", "0", [](const Form& f) { return std::to_string(f.chkForce.value()); }, 0},
        {"Force", "7", "1", [](const Form& f) { return std::to_string(f.chkForce.value()); }, 1},
        {"Log", "99999999999", "1", [](const Form& f) { return std::to_string(f.chkLog.value()); }, 1},
        {"IconFiles", "-1", "1", [](const Form& f) { return std::to_string(f.chkIcon.value()); }, 1},
        {"DotDash", "", "0", [](const Form& f) { return std::to_string(f.chkDotDash.value()); }, 0},
        {"Backup", "nan", "0", [](const Form& f) { return std::to_string(f.optDaily.enabled()); }, 0},
        {"CheckFreq", "4", "0", [](const Form& f) { return std::to_string(f.cmbCheck.selected()); }, 1},
        {"CheckFreq", "month", "0", [](const Form& f) { return std::to_string(f.cmbCheck.selected()); }, 0},
        {"DudeSex", "1e9", "0", [](const Form& f) { return std::to_string(f.cmbDudeSex.selected() > 0); }, 1},
        {"CharacterSize", "5", "0", [](const Form& f) { return std::to_string(f.cmbSize.selected()); }, 1},
        {"SpeechFreq", "loud", "0", [](const Form& f) { return std::to_string(f.picSlide.value()); }, 0},
        {"SpeechFreq", "40000", "25", [](const Form& f) { return std::to_string(f.picSlide.value()); }, 1},
        {"SpeechFreq", "1000", "200", [](const Form& f) { return std::to_string(f.picSlide.value()); }, 0},
        {"Interval", "soon", "1", [](const Form& f) { return f.txtInterval.text(); }, 0},
        {"Interval", "", "1", [](const Form& f) { return f.txtInterval.text(); }, 0},
        {"Interval", "-3", "1", [](const Form& f) { return f.txtInterval.text(); }, 0},
        {"Interval", "007 hours", "7", [](const Form& f) { return f.txtInterval.text(); }, 0},
        {"KB", "plenty", "0", total, 0},
        {"KB", "3000000000", "0", total, 1},
        {"BackupDate", "31.2.2026", "23:00", [](const Form& f) { return hourOf(f.dtpBackup); }, 1},
        {"BackupDate", "2026-02-31T05:00:00", "23:00", [](const Form& f) { return hourOf(f.dtpBackup); }, 1},
        {"WordTime", "25:99", "09:15", [](const Form& f) { return hourOf(f.dtpWord); }, 1},
        {"Weekly", "sometimes", "1", [](const Form& f) { return std::to_string(f.optDaily.value()); }, 0},
        {"Tab", "99", "1", [](const Form& f) { return std::to_string(f.picTab[0].visible()); }, 1},
        {"Tab", "-1", "1", [](const Form& f) { return std::to_string(f.picTab[0].visible()); }, 1},
        {"Tab", "third", "1", [](const Form& f) { return std::to_string(f.picTab[0].visible()); }, 0},
        {"Language", "/etc/passwd", "0", [](const Form& f) { return std::to_string(f.lstLang.selected()); },
         0},
        {"LastUpdateCheck", "yesterday", "1",
         [](const Form& f) { return std::to_string(f.chkUpdate.value()); }, 0},
    };
    for (const auto& row : cases) {
        ProgramWorld world;
        world.settings.set(row.key, row.nonsense);
        world.dialogs.answers = {Button::Yes};
        const std::string what = std::string(row.key) + "=" + row.nonsense;
        ASSERT_TRUE(world.program.Form_Load()) << what;
        EXPECT_EQ(row.held, row.look(world.form)) << what;
        EXPECT_EQ(static_cast<std::size_t>(row.questions), world.dialogs.boxes.size()) << what;
        EXPECT_TRUE(world.tray.shown) << what;
        EXPECT_TRUE(world.form.Timer1.enabled()) << what;
        world.form.Timer1.tick(); // and it goes on

        ProgramWorld next;
        next.settings.values = world.settings.values;
        next.dialogs.answers = {Button::Yes};
        ASSERT_TRUE(next.program.Form_Load()) << what;
        EXPECT_EQ(std::string(row.key) == "KB" ? row.questions : 0, std::ssize(next.dialogs.boxes)) << what;
    }
}

TEST(Program, sendsTheFirstOneWhatItWasStartedFor) {
    using platform::Errand;
    const struct {
        bool tray, answers;
        std::optional<Errand> errand;
        std::vector<Errand> sent;
        std::size_t boxes;
    } kCases[] = {{true, true, std::nullopt, {}, 1},
                  {false, true, std::nullopt, {Errand::ShowWindow}, 0}, // which could not be clicked
                  {false, false, std::nullopt, {}, 1},
                  {true, true, Errand::ScanNow, {Errand::ScanNow}, 0},
                  {false, true, Errand::SwitchQuiet, {Errand::SwitchQuiet}, 0},
                  {true, false, Errand::ScanNow, {}, 1}};
    for (const auto& [tray, answers, errand, sent, boxes] : kCases) {
        ProgramWorld second;
        second.instance.first = false;
        second.instance.answers = answers;
        second.tray.present = tray;
        EXPECT_FALSE(second.program.Form_Load(errand));
        EXPECT_EQ(sent, second.instance.sent);
        EXPECT_EQ(boxes, second.dialogs.boxes.size());
    }
}

TEST(Program, isInTheTaskBarWhereThereIsNoNotificationArea) {
    ProgramWorld world;
    world.tray.present = false;
    ASSERT_TRUE(world.program.Form_Load());
    EXPECT_FALSE(world.form.window.visible()) << "the panel may be slow to come";
    world.form.Timer1.tick();
    EXPECT_TRUE(world.form.window.visible());
    EXPECT_EQ(ui::WindowState::Minimized, world.form.window.state()) << "nothing comes up unasked";
    ASSERT_EQ(1U, world.dialogs.boxes.size()) << "how to get an icon";
    world.form.Timer1.tick();
    EXPECT_EQ(1U, world.dialogs.boxes.size()) << "is told once";
    world.form.mPopRestore.click();
    world.tray.present = true;
    world.form.Timer1.tick();
    EXPECT_TRUE(world.form.window.visible()) << "the user is in it";
    world.form.window.setState(ui::WindowState::Minimized);
    EXPECT_FALSE(world.form.window.visible());
    world.tray.present = false; // the panel is gone
    world.form.Timer1.tick();
    EXPECT_TRUE(world.form.window.visible());
    world.tray.present = true;
    world.form.Timer1.tick();
    EXPECT_FALSE(world.form.window.visible()) << "there is an icon again";
    EXPECT_EQ(1U, world.dialogs.boxes.size());
}

TEST(Program, saysOnceThatSettingsCannotBeSaved) {
    ProgramWorld world;
    world.settings.refuses = true;
    ASSERT_TRUE(world.program.Form_Load());
    ASSERT_EQ(1U, world.dialogs.boxes.size());
    EXPECT_NE(std::string::npos, world.dialogs.boxes[0].text.find("memory")) << "it says where";
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
    world.clock.time += hours(24);
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

TEST(Program, beginsInTheLanguageOfItsUserAndKeepsWhatHeChose) {
    struct {
        long locale;
        const char* stored;
        const char* taken;
        const char* why;
    } const cases[] = {{1031, nullptr, "german.blp", "the first start of all"},
                       {1036, nullptr, "default.blp", "there is no such language"},
                       {1031, "default.blp", "default.blp", "chosen before"}};
    for (const auto& [locale, stored, taken, why] : cases) {
        ProgramWorld world;
        world.folder.files["german.blp"] = fakes::testLanguage() + "languageid=1031\n";
        world.regional.language = locale;
        if (stored != nullptr)
            world.settings.set("Language", stored);
        ASSERT_TRUE(world.program.Form_Load());
        EXPECT_EQ(taken, world.settings.setting("Language")) << why;
    }
}

} // namespace
} // namespace brovin::app
