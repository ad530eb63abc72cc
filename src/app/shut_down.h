#pragma once

#include "cleaner/cleaner.h"
#include "companion/actor.h"
#include "companion/speech.h"
#include "platform/character_service.h"
#include "platform/notification_area.h"
#include "platform/shell.h"
#include "settings/settings.h"
#include "ui/frm_options.h"

#include <string>

namespace brovin::app {

/// The ways out of the program: the exit button with its question, and the unloading of the window.
class ShutDown {
public:
    struct Needs {
        ui::FrmOptions& form;
        settings::Settings& settings;
        companion::Speech speech;
        companion::Actor& actor;
        cleaner::Cleaner& cleaner;
        platform::CharacterService& characters;
        platform::NotificationArea& tray;
        platform::Shell& shell;
    };
    explicit ShutDown(const Needs& needs) : needs_(needs) {}

    /// Asks, and ends the program on Yes. While a scan runs that is refused and leaves no trace, but the scan
    /// can be stopped.
    void cmdExit_Click();
    /// The window is about to be put away: where a scan runs, that is told, and it can be stopped.
    void closing();
    /// Ends the program without a question; refused while a scan runs.
    void Form_Unload();

private:
    void offerToStopScan(const std::string& question);
    void leaveCharacter();

    Needs needs_;
};

} // namespace brovin::app
