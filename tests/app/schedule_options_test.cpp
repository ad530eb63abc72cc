#include "app/schedule_options.h"
#include "app/stored_controls.h"

#include "fakes/fake_machine.h"
#include "text/date_text.h"

#include <gtest/gtest.h>

namespace brovin::app {
namespace {

struct ScheduleOptionsWorld : fakes::FakeMachine {
    ScheduleOptionsWorld() {
        form.optDaily.click = [this] { schedule.optDaily_Click(); };
        form.optWeekly.click = [this] { schedule.optWeekly_Click(); };
        form.txtInterval.change = [this] { schedule.txtInterval_Change(); };
        form.txtReminder.change = [this] { schedule.txtReminder_Change(); };
        tieStoring(form, options);
    }
    ui::FrmOptions form;
    settings::Settings options{settings};
    ScheduleOptions schedule{{form, options, regional}};
};

TEST(ScheduleOptions, mendTheIntervalAsItIsTyped) {
    constexpr std::pair<std::string_view, std::string_view> kCases[] = {
        {"5", "5"},  {"007", "7"}, {"12 hours", "12"}, {"1.50", "1.5"}, {"0", "1"},
        {"-3", "1"}, {"-0", "1"},  {"often", "1"},     {"", "1"},       {"0.5", "0.5"},
    };
    for (const auto& [typed, kept] : kCases) {
        ScheduleOptionsWorld world;
        world.form.txtInterval.setText("9");
        world.form.txtInterval.setText(std::string(typed));
        EXPECT_EQ(kept, world.form.txtInterval.text()) << typed;
        EXPECT_EQ(kept, world.settings.setting("Interval")) << typed;
    }
}

TEST(ScheduleOptions, switchBetweenTheDayAndTheWeek) {
    ScheduleOptionsWorld world;
    world.form.optWeekly.setValue(true);
    EXPECT_EQ("1", world.settings.setting("Weekly"));
    EXPECT_EQ("h:mm tt ddd", world.form.dtpBackup.customFormat());
    world.form.optDaily.setValue(true);
    EXPECT_EQ("0", world.settings.setting("Weekly"));
    EXPECT_EQ("h:mm tt", world.form.dtpBackup.customFormat());
    EXPECT_FALSE(world.form.optWeekly.value());
}

TEST(ScheduleOptions, storeTimesThatCanBeReadAgain) {
    ScheduleOptionsWorld world;
    const auto monday = text::dateOf("2026-11-23T07:30:00");
    ASSERT_TRUE(monday.has_value());
    world.form.dtpBackup.setValue(*monday);
    EXPECT_EQ(monday, text::dateOf(world.settings.setting("BackupDate"))) << "with its weekday";

    world.form.chkWord.setCaption("&Word of the day");
    world.form.dtpWord.setValue(*monday);
    world.schedule.dtpWord_Change();
    EXPECT_EQ(monday, text::dateOf(world.settings.setting("WordTime")));
    EXPECT_EQ("07:30:00 Word of the day", world.form.dtpWord.toolTip());
    EXPECT_EQ("07:30:00 Word of the day", world.form.chkWord.toolTip());
}

TEST(ScheduleOptions, keepTheReminderWhenItsTextIsEmptied) {
    ScheduleOptionsWorld world;
    world.form.txtReminder.setText("Go home");
    world.form.txtReminder.setText("");
    EXPECT_EQ("Go home", world.settings.setting("Reminder"));
}

TEST(ScheduleOptions, enableTheControlsOfWhatIsOn) {
    for (const int on : {0, 1}) {
        ScheduleOptionsWorld world;
        world.form.chkBackup.setValue(on);
        world.schedule.chkBackup_Click();
        for (const ui::Control* control : std::initializer_list<const ui::Control*>{
                 &world.form.optDaily, &world.form.optWeekly, &world.form.cmdSpeak, &world.form.dtpBackup,
                 &world.form.txtReminder, &world.form.chkMsgBox})
            EXPECT_EQ(on == 1, control->enabled()) << control->name();
        EXPECT_EQ(std::to_string(on), world.settings.setting("Backup"));

        world.form.chkWord.setValue(on);
        world.schedule.chkWord_Click();
        EXPECT_EQ(on == 1, world.form.dtpWord.enabled());
        EXPECT_EQ(on == 1, world.form.chkWordMsgBox.enabled());
    }
}

} // namespace
} // namespace brovin::app
