#pragma once

#include "app/settings.h"
#include "cleaner/speech.h"
#include "companion/actor.h"
#include "platform/character_service.h"
#include "platform/notification_area.h"
#include "platform/shell.h"
#include "ui/frm_options.h"

namespace brovin::app {

/// The ways out of the program: the exit button with its question, and the unloading of the window.
class ShutDown {
public:
    struct Needs {
        ui::FrmOptions& form;
        Settings& settings;
        cleaner::Speech speech;
        companion::Actor& actor;
        platform::CharacterService& characters;
        platform::NotificationArea& tray;
        platform::Shell& shell;
    };
    explicit ShutDown(const Needs& needs) : needs_(needs) {}

    /// Asks, and ends the program on Yes; refused while a scan runs.
    void cmdExit_Click();
    /// Ends the program without a question; refused while a scan runs.
    void Form_Unload();

private:
    void leaveCharacter();

    Needs needs_;
};

} // namespace brovin::app
