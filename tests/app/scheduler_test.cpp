#include "program_world.h"
#include "text/date_text.h"

#include <gtest/gtest.h>

#include <sys/resource.h>

#include <cstdlib>

namespace brovin::app {
namespace {

using std::chrono::days;
using std::chrono::hours;
using std::chrono::milliseconds;
using std::chrono::minutes;
using std::chrono::seconds;

platform::DateTime at(std::string_view iso) {
    return *text::dateOf(iso);
}

/// The running program, whose clock the test moves.
struct SchedulerWorld : ProgramWorld {
    explicit SchedulerWorld(std::string_view start = "2026-11-21T08:00:00") : ProgramWorld(false) {
        clock.time = at(start);
        program.Form_Load();
        form.chkUpdate.setValue(0);
        form.chkCheck.setValue(0);
        form.chkBackup.setValue(0);
        form.chkWord.setValue(0);
    }
    void tickAt(std::string_view iso) {
        clock.time = at(iso);
        form.Timer1.tick();
    }
};

TEST(Reminder, comesOnceADayInItsMinute) {
    SchedulerWorld world;
    world.form.dtpBackup.setValue(at("23:00"));
    world.tickAt("2026-11-19T23:00:20");
    EXPECT_TRUE(world.dialogs.boxes.empty()) << "its box is off";
    world.form.chkBackup.setValue(1);
    world.form.dtpBackup.setValue(at("23:00"));
    world.tickAt("2026-11-21T22:59:59");
    EXPECT_TRUE(world.dialogs.boxes.empty());
    world.tickAt("2026-11-21T23:00:20");
    ASSERT_EQ(1U, world.dialogs.boxes.size());
    EXPECT_EQ("m42(%1,%2)", world.dialogs.boxes[0].text);
    EXPECT_EQ("Reminder", world.dialogs.boxes[0].title);
    world.tickAt("2026-11-21T23:00:50");
    EXPECT_EQ(1U, world.dialogs.boxes.size()) << "the second tick of the minute";
    world.tickAt("2026-11-22T23:00:00");
    EXPECT_EQ(2U, world.dialogs.boxes.size()) << "the next day";
    world.tickAt("2026-11-22T22:30:00"); // summer ends
    world.tickAt("2026-11-22T23:00:10");
    EXPECT_EQ(2U, world.dialogs.boxes.size()) << "the same hour once more";
}

TEST(Reminder, waitsForItsWeekdayWhenWeekly) {
    SchedulerWorld world;
    world.form.chkBackup.setValue(1);
    world.form.optWeekly.setValue(true);
    world.form.dtpBackup.setValue(at("2026-11-23T20:00:00")); // a Monday
    world.tickAt("2026-11-22T20:00:10");
    EXPECT_TRUE(world.dialogs.boxes.empty()) << "Sunday";
    world.tickAt("2026-11-30T20:00:10");
    EXPECT_EQ(1U, world.dialogs.boxes.size()) << "another Monday";
}

TEST(Reminder, hasAnotherTextWhileNoneIsStored) {
    SchedulerWorld world;
    world.form.chkBackup.setValue(1);
    world.form.dtpBackup.setValue(at("23:00"));
    world.settings.values.erase({"Settings", "Reminder"});
    world.tickAt("2026-11-21T23:00:20");
    ASSERT_EQ(1U, world.dialogs.boxes.size());
    EXPECT_EQ("Time to go to bed, Fool!", world.dialogs.boxes[0].text);
}

TEST(WordOfTheDay, hasAWindowOfTwentyNineSeconds) {
    constexpr struct {
        const char* time;
        bool comes;
    } kCases[] = {{"2026-11-21T09:14:59", false}, {"2026-11-21T09:15:00", false},
                  {"2026-11-21T09:15:01", true},  {"2026-11-21T09:15:29", true},
                  {"2026-11-21T09:15:30", false}, {"2026-11-21T10:15:10", false}};
    for (const auto& [time, comes] : kCases) {
        SchedulerWorld world;
        world.form.chkWord.setValue(1);
        world.form.dtpWord.setValue(at("9:15"));
        world.tickAt(time);
        EXPECT_EQ(comes ? 1U : 0U, world.dialogs.boxes.size()) << time;
        if (comes) {
            EXPECT_EQ("m52(Fleecy,, Fool)", world.dialogs.boxes.at(0).text);
        }
    }
}

TEST(AutomaticScan, countsTheHoursThatBegin) {
    SchedulerWorld world("2026-11-21T10:59:00");
    world.form.chkCheck.setValue(1);
    world.form.txtInterval.setText("1");
    world.tickAt("2026-11-21T10:59:30");
    EXPECT_EQ("", world.settings.setting("LastScanned")) << "the same hour";
    world.tickAt("2026-11-21T11:00:01");
    EXPECT_EQ("21 November 2026 11:00:01", world.settings.setting("LastScanned"));
    world.tickAt("2026-11-21T11:59:59");
    EXPECT_EQ("21 November 2026 11:00:01", world.settings.setting("LastScanned"));
}

/// Also by an hour, as summer ends and begins, and while the machine sleeps.
TEST(AutomaticScan, goesOnAfterTheClockHasJumped) {
    SchedulerWorld world("2026-11-21T10:30:00");
    world.form.chkCheck.setValue(1);
    world.form.chkBackup.setValue(1);
    world.form.txtInterval.setText("2");
    constexpr struct {
        const char* time;
        const char* scanned; ///< the last time, after a tick at that one
    } kTicks[] = {{"2026-11-21T12:00:05", "21 November 2026 12:00:05"},
                  {"2026-11-22T12:00:35", "22 November 2026 12:00:35"},
                  {"2026-11-21T12:01:05", "22 November 2026 12:00:35"},
                  {"2026-11-21T13:59:59", "22 November 2026 12:00:35"},
                  {"2026-11-21T14:00:05", "21 November 2026 14:00:05"},
                  {"2026-11-21T13:00:35", "21 November 2026 14:00:05"},
                  {"2026-11-21T15:00:05", "21 November 2026 15:00:05"}};
    for (const auto& [time, scanned] : kTicks) {
        world.tickAt(time);
        EXPECT_EQ(scanned, world.settings.setting("LastScanned")) << time;
    }
    EXPECT_TRUE(world.dialogs.boxes.empty()) << "no reminder that was not due";
}

TEST(AutomaticScan, waitsWhileAnotherCopyScans) {
    SchedulerWorld world;
    world.form.chkCheck.setValue(1);
    world.form.txtInterval.setText("1");
    world.scanLock.heldElsewhere = true;
    world.tickAt("2026-11-21T09:00:01");
    world.scanLock.heldElsewhere = false;
    world.tickAt("2026-11-21T09:00:31");
    EXPECT_EQ("21 November 2026 09:00:31", world.settings.setting("LastScanned"));
}

TEST(AutomaticScan, waitsForASearch) {
    SchedulerWorld world;
    world.files.addFile("/share/Thumbs.db", 1);
    world.dialogs.folders = {"/share"};
    world.form.cmdAddFolder.click();
    world.dialogs.typed = {"Thumbs.db"};
    world.form.cmdAddFile.click();
    world.form.chkCheck.setValue(1);
    world.form.txtInterval.setText("1");
    bool ticked = false;
    world.pump.onPump = [&] {
        if (!ticked) {
            ticked = true;
            world.tickAt("2026-11-21T09:00:01");
        }
    };
    world.form.cmdPreview.click();
    EXPECT_TRUE(ticked);
    EXPECT_EQ("", world.settings.setting("LastScanned"));
    world.tickAt("2026-11-21T09:00:31");
    EXPECT_EQ("21 November 2026 09:00:31", world.settings.setting("LastScanned"));
}

TEST(UpdateCheck, isDueAfterItsPeriod) {
    constexpr struct {
        const char* last;
        int period;
        const char* today;
        bool due;
        const char* why;
    } kCases[] = {
        {"", 0, "2026-11-21", true, "never checked"},
        {"2026-11-21", 0, "2026-11-21", false, "today"},
        {"2026-11-20", 0, "2026-11-21", true, "a day"},
        {"2026-11-15", 1, "2026-11-21", false, "six days of a week"},
        {"2026-11-14", 1, "2026-11-21", true, "a week"},
        {"2026-11-08", 2, "2026-11-21", false, "thirteen days of two weeks"},
        {"2026-10-21", 3, "2026-11-21", true, "a month"},
        {"2026-01-31", 3, "2026-02-27", false, "February has no 31st: the 28th counts"},
        {"2026-01-31", 3, "2026-02-28", true, "February's last day"},
        {"2025-12-31", 3, "2026-01-31", true, "over the end of a year"},
        {"soon", 0, "2026-11-21", true, "no date counts as none"},
    };
    for (const auto& [last, period, today, due, why] : kCases) {
        SchedulerWorld world;
        world.settings.set("LastUpdateCheck", last);
        world.form.cmbCheck.select(period);
        world.form.chkUpdate.setValue(1);
        world.tickAt(today);
        EXPECT_EQ(due ? today : last, world.settings.setting("LastUpdateCheck")) << why;
    }
}

TEST(Tick, bringsTheIconBackWithItsTip) {
    SchedulerWorld world;
    const std::string tip = world.tray.tips.back();
    world.tray.shown = false; // the panel was restarted
    world.tickAt("2026-11-21T08:01:00");
    EXPECT_TRUE(world.tray.shown);
    EXPECT_EQ(tip, world.tray.tips.back());
}

/// KiB that this process has had in memory.
long mostMemory() {
    rusage used{};
    ::getrusage(RUSAGE_SELF, &used);
    return used.ru_maxrss;
}

/// Tick by tick as they really come. Through a year the program must not grow by more than a mebibyte.
void liveThrough(std::chrono::local_days start, days length) {
    SchedulerWorld world(text::isoText(start));
    world.form.chkBackup.setValue(1);
    world.form.chkCheck.setValue(1);
    world.form.chkUpdate.setValue(1);
    world.form.txtInterval.setText("24");
    std::size_t reminders = 0;
    long early = 0;
    for (auto now = std::chrono::time_point_cast<milliseconds>(start); now < start + length;) {
        now += milliseconds(30500);
        world.clock.time = std::chrono::floor<seconds>(now);
        world.form.Timer1.tick();
        reminders += world.dialogs.boxes.size();
        world.dialogs.boxes.clear();
        world.tray.tips.clear();
        if (now < start + days(30))
            early = mostMemory();
    }
    EXPECT_TRUE(length < days(300) || mostMemory() - early < 1024)
        << mostMemory() - early << " KiB more than after a month";
    EXPECT_EQ(length.count(), reminders) << text::isoText(start);
    EXPECT_EQ(text::isoText(start + length), world.settings.setting("LastUpdateCheck"));
    const auto lines = world.folder.lines("deletions.log");
    EXPECT_EQ(length.count(), std::count(lines.begin(), lines.end(), "m58(%1,%2)")) << "nothing found";
}

/// A week around the end of each month; with BROVIN_WHOLE_YEAR all of it, by one program.
TEST(Tick, doesTheWorkOfEachDay) {
    const std::chrono::year year(2026);
    if (std::getenv("BROVIN_WHOLE_YEAR") != nullptr)
        return liveThrough(std::chrono::local_days(year / 1 / 1), days(365));
    for (int month = 1; month <= 12; ++month)
        liveThrough(std::chrono::local_days(year / month / std::chrono::last) - days(3), days(7));
}

} // namespace
} // namespace brovin::app
