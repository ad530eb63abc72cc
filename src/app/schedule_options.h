#pragma once

#include "platform/regional.h"
#include "settings/settings.h"
#include "ui/frm_options.h"

namespace brovin::app {

/// The options that say when the reminder, the word of the day and the automatic scan are due.
class ScheduleOptions {
public:
    struct Needs {
        ui::FrmOptions& form;
        settings::Settings& settings;
        const platform::Regional& regional;
    };
    explicit ScheduleOptions(const Needs& needs) : needs_(needs) {}

    void optDaily_Click();
    void optWeekly_Click();
    void chkBackup_Click() { refreshReminderControls(); }
    void txtReminder_Change();
    /// Tells the time of the word of the day beside its controls.
    void dtpWord_Change();
    void chkWord_Click();
    void txtInterval_Change();

    /// The reminder's controls can be used exactly while the reminder is on.
    void refreshReminderControls();

private:
    Needs needs_;
};

} // namespace brovin::app
