#pragma once

#include "companion/character_choice.h"
#include "companion/character_host.h"
#include "companion/character_menu.h"
#include "companion/character_size.h"
#include "companion/quiet.h"
#include "companion/speech_commands.h"
#include "companion/teller.h"
#include "companion/waiting_news.h"

namespace brovin::companion {

/// The animated character put together: the one who loads and places it, and what the user makes it do, tied
/// to their controls and to what the user does with the character itself.
class Companion {
public:
    struct Needs {
        ui::TrayMenu& trayMenu;
        settings::Settings& settings;
        const language::LanguageTables& tables;
        Teller& teller;
        platform::CharacterService& service;
        platform::CharacterGallery* gallery;  ///< null: characters are names to choose from
        platform::Surroundings* surroundings; ///< null: nothing is known of them
        const platform::Clock& clock;
        const platform::Regional& regional;
        const platform::Letters& letters;
        platform::Random& random;
    };
    Companion(const CharacterHost::Pages& pages, const Needs& needs);
    ~Companion();
    Companion(const Companion&) = delete;
    Companion& operator=(const Companion&) = delete;

    CharacterHost host;
    CharacterSize size;
    SpeechCommands commands;
    Quiet quiet;
    WaitingNews news;

private:
    void tie(ui::CharacterPage& page);
    void tie(ui::SpeechPage& page, ui::Button& cmdSpeak);

    CharacterChoice choice_;
    CharacterMenu menu_;
    platform::CharacterService& service_;
    platform::Surroundings* surroundings_; ///< null: nothing is known of them
};

} // namespace brovin::companion
