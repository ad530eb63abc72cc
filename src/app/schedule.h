#pragma once

#include "app/schedule_options.h"
#include "app/scheduler.h"

namespace brovin::app {

/// What happens by time put together: the options that say when, and the tick, tied to their controls.
class Schedule {
public:
    explicit Schedule(const Scheduler::Needs& needs)
        : options({needs.form, needs.settings, needs.regional}), scheduler(needs) {
        ui::FrmOptions& form = needs.form;
        form.Timer1.tick = [this] { scheduler.Timer1_Timer(); };
        form.optDaily.click = [this] { options.optDaily_Click(); };
        form.optWeekly.click = [this] { options.optWeekly_Click(); };
        form.chkBackup.click = [this] { options.chkBackup_Click(); };
        form.txtReminder.change = [this] { options.txtReminder_Change(); };
        form.dtpWord.change = [this] { options.dtpWord_Change(); };
        form.chkWord.click = [this] { options.chkWord_Click(); };
        form.txtInterval.change = [this, &statistics = needs.cleaner.statistics] {
            options.txtInterval_Change();
            statistics.showLastScanned();
        };
    }
    Schedule(const Schedule&) = delete;
    Schedule& operator=(const Schedule&) = delete;

    ScheduleOptions options;
    Scheduler scheduler;
};

} // namespace brovin::app
