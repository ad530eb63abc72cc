#pragma once

#include "companion/actor.h"
#include "language/message_table.h"
#include "platform/character_service.h"
#include "settings/settings.h"
#include "ui/pages/character_page.h"
#include "ui/program_life.h"

namespace brovin::companion {

/// How large the character is: as the screen's scale has it, or as the user wishes.
class CharacterSize {
public:
    struct Needs {
        ui::CharacterPage& page;
        const ui::ProgramLife& life;
        settings::Settings& settings;
        const language::MessageTable& messages;
        Actor& actor;
        platform::CharacterService& service;
    };
    explicit CharacterSize(const Needs& needs) : needs_(needs) {}

    /// Fills `cmbSize` in the active language; what is chosen there stays.
    void nameSizes();
    /// Gives the character its size. It stays where its feet are, but on the screen, as a whole.
    void cmbSize_Click();

private:
    Needs needs_;
};

} // namespace brovin::companion
