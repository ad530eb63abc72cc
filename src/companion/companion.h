#pragma once

#include "companion/character_host.h"
#include "companion/speech_commands.h"
#include "companion/teller.h"

namespace brovin::companion {

/// The animated character put together: the one who loads and places it, and what the user makes it do, tied
/// to their controls and to what the user does with the character itself.
class Companion {
public:
    struct Needs {
        ui::CharacterPage& characterPage;
        ui::SpeechPage& speechPage;
        ui::RemindersPage& remindersPage;
        const ui::WindowFrame& frame;
        const ui::ProgramLife& life;
        settings::Settings& settings;
        const language::LanguageTables& tables;
        Teller& teller;
        platform::CharacterService& service;
        const platform::Letters& letters;
        platform::Random& random;
    };
    explicit Companion(const Needs& needs);
    ~Companion();
    Companion(const Companion&) = delete;
    Companion& operator=(const Companion&) = delete;

    CharacterHost host;
    SpeechCommands commands;

private:
    void tie(ui::CharacterPage& page);
    void tie(ui::SpeechPage& page, ui::Button& cmdSpeak);

    platform::CharacterService& service_;
};

} // namespace brovin::companion
