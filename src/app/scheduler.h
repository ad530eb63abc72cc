#pragma once

#include "cleaner/scan_run.h"
#include "cleaner/statistics.h"
#include "companion/actor.h"
#include "companion/speech.h"
#include "platform/clock.h"
#include "platform/notification_area.h"
#include "platform/random.h"
#include "platform/regional.h"
#include "settings/settings.h"
#include "ui/frm_options.h"

namespace brovin::app {

/// Everything that happens by time, at each tick of `Timer1`.
class Scheduler {
public:
    struct Needs {
        ui::FrmOptions& form;
        settings::Settings& settings;
        companion::Speech speech;
        const companion::Actor& actor;
        cleaner::ScanRun& scanRun;
        cleaner::Statistics& statistics;
        platform::NotificationArea& tray;
        platform::Random& random;
        const platform::Clock& clock;
        const platform::Regional& regional;
    };
    explicit Scheduler(const Needs& needs) : needs_(needs) {}

    /// The period between two update checks has passed.
    ui::Event<> checkForUpdates;

    /// One tick. A step that fails is passed over, and the next one follows.
    void Timer1_Timer();

private:
    void chatter();
    void popOut();
    void remind();
    void announceWord();
    void scanWhenDue();
    void checkWhenDue();

    Needs needs_;
};

} // namespace brovin::app
