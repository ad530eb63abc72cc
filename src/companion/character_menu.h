#pragma once

#include "companion/quiet.h"
#include "language/message_table.h"
#include "platform/character_service.h"
#include "ui/pages/speech_page.h"
#include "ui/pages/tray_menu.h"

namespace brovin::companion {

/// What the character's menu offers: to be quiet, and how loud it is otherwise.
class CharacterMenu {
public:
    struct Needs {
        ui::SpeechPage& page;
        ui::TrayMenu& tray; ///< has the same switches
        Quiet& quiet;
        const language::MessageTable& messages;
        platform::CharacterService& service;
    };
    explicit CharacterMenu(const Needs& needs) : needs_(needs) {}

    /// Shows how things stand, in the active language.
    void show();

private:
    [[nodiscard]] platform::MenuEntry switchEntry(const ui::CheckBox& box, Quiet::Switch how) const;
    [[nodiscard]] platform::MenuEntry loudness(language::Text caption, ui::CheckBox& mute,
                                               ui::Volume& volume) const;

    Needs needs_;
};

} // namespace brovin::companion
