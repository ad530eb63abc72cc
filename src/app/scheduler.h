#pragma once

#include "cleaner/cleaner.h"
#include "companion/actor.h"
#include "companion/quiet.h"
#include "companion/speech.h"
#include "companion/waiting_news.h"
#include "platform/clock.h"
#include "platform/random.h"
#include "platform/regional.h"
#include "settings/settings.h"
#include "ui/frm_options.h"
#include "ui/tray_tip.h"
#include "window/speech_frequency.h"

namespace brovin::app {

/// Everything that happens by time, at each tick of `Timer1`.
class Scheduler {
public:
    struct Needs {
        ui::FrmOptions& form;
        settings::Settings& settings;
        companion::Speech speech;
        companion::Actor& actor;
        companion::Quiet& quiet;
        companion::WaitingNews& news;
        cleaner::Cleaner& cleaner;
        const window::SpeechFrequency& speechFrequency;
        ui::TrayTip& tip;
        platform::Random& random;
        const platform::Clock& clock;
        const platform::Regional& regional;
    };
    explicit Scheduler(const Needs& needs) : needs_(needs) {}

    /// The period between two update checks has passed.
    ui::Event<> checkForUpdates;

    /// The reminder may still come today.
    void beginDay();

    /// One tick. A step that fails is passed over, and the next one follows.
    void Timer1_Timer();

private:
    void chatter();
    void popOut();
    void remind();
    void announceWord();
    void scanWhenDue();
    void stayInReach();
    void checkWhenDue();

    Needs needs_;
    std::int16_t lastReminderDay_ = 0; ///< day of the month on which the reminder last fired
};

} // namespace brovin::app
