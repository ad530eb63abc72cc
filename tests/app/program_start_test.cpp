#include "program_world.h"

#include <gtest/gtest.h>

#include <functional>
#include <optional>

namespace brovin::app {
namespace {

using platform::Button;

/// The time of day that a picker shows.
std::string hourOf(const ui::Picker& picker) {
    return fakes::FakeRegional().shortTime(picker.value());
}

TEST(ProgramStart, comesUpWithItsDefaultsOnAFirstStart) {
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

TEST(ProgramStart, beginsInTheLanguageOfItsUserAndKeepsWhatHeChose) {
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

TEST(ProgramStart, endsWithAWordWhenItCannotGoOn) {
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

TEST(ProgramStart, asksWhetherToGoOnAfterAFailingStep) {
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

TEST(ProgramStart, startsWhateverIsWrittenInItsSettings) {
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

TEST(ProgramStart, sendsTheFirstOneWhatItWasStartedFor) {
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

TEST(ProgramStart, isInTheTaskBarWhereThereIsNoNotificationArea) {
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

TEST(ProgramStart, saysOnceThatSettingsCannotBeSaved) {
    ProgramWorld world;
    world.settings.refuses = true;
    ASSERT_TRUE(world.program.Form_Load());
    ASSERT_EQ(1U, world.dialogs.boxes.size());
    EXPECT_NE(std::string::npos, world.dialogs.boxes[0].text.find("memory")) << "it says where";
}

} // namespace
} // namespace brovin::app
