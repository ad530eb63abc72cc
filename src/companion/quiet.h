#pragma once

#include "companion/actor.h"
#include "platform/character_service.h"
#include "platform/clock.h"
#include "platform/surroundings.h"
#include "settings/settings.h"
#include "ui/pages/speech_page.h"
#include "ui/pages/tray_menu.h"

#include <cstdint>

namespace brovin::companion {

/// Whether it is quiet: nobody chatters, no balloon opens and nothing is heard. By the user's switch, by the
/// hours that he has set, or by what he is at. Also how loud it is while it is not.
class Quiet {
public:
    struct Needs {
        ui::SpeechPage& page;
        ui::TrayMenu& menu;
        settings::Settings& settings;
        Actor& actor; ///< who is told to hold his tongue
        platform::CharacterService& service;
        platform::Surroundings* surroundings; ///< null: nothing is known of them
        const platform::Clock& clock;
    };
    /// Ties the controls that have to do with it.
    explicit Quiet(const Needs& needs);

    /// The user's switch.
    enum class Switch : std::uint8_t { Off, UntilSwitchedOff, ForAnHour, UntilTomorrow };

    [[nodiscard]] bool on() const { return needs_.actor.quiet; }
    [[nodiscard]] Switch chosen() const { return chosen_; }
    /// Chooses; what is chosen already is switched off.
    void choose(Switch how);

    /// Takes the switch from the settings.
    void restore();
    /// Looks whether it is quiet at this moment. Where that begins, the character breaks off; behind a locked
    /// screen its time stands still as well.
    void review();

    /// The switch, the loudness or whether it is quiet has become another one.
    ui::Event<> changed;

private:
    [[nodiscard]] bool asked();
    [[nodiscard]] bool inHours() const;
    [[nodiscard]] bool behindLock() const;
    [[nodiscard]] bool behindFullScreen() const;
    void showSwitch();

    Needs needs_;
    Switch chosen_ = Switch::Off;
    platform::DateTime until_{}; ///< of ForAnHour and UntilTomorrow
};

} // namespace brovin::companion
