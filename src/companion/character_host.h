#pragma once

#include "companion/actor.h"
#include "companion/phrase_engine.h"
#include "language/language_tables.h"
#include "platform/character_service.h"
#include "platform/letters.h"
#include "platform/random.h"
#include "settings/settings.h"
#include "ui/pages/character_page.h"
#include "ui/pages/reminders_page.h"
#include "ui/pages/speech_page.h"
#include "ui/pages/window_frame.h"
#include "ui/program_life.h"

#include <string>
#include <string_view>

namespace brovin::companion {

/// What the names of character files end in.
inline constexpr std::string_view kCharacterFileEnding = ".acs";

/// Finds the installed characters, keeps the chosen one loaded and on the screen, and lets it answer when the
/// user clicks, drags or hides it. What the service refuses is passed over without a word.
class CharacterHost {
public:
    /// What of the form it works on.
    struct Pages {
        ui::CharacterPage& character;
        ui::SpeechPage& speech;
        ui::RemindersPage& reminders;
        const ui::WindowFrame& frame;
        const ui::ProgramLife& life;
    };
    struct Needs {
        Pages pages;
        settings::Settings& settings;
        const language::LanguageTables& tables;
        Actor& actor;
        PhraseEngine& phrases;
        platform::CharacterService& service;
        const platform::Letters& letters;
        platform::Random& random;
    };
    explicit CharacterHost(const Needs& needs) : needs_(needs) {}

    /// Fills `lstChars` and selects the character in use; a character that has no file is not selected.
    void scanCharacters();
    /// Loads and places the character without showing it, while the character is on. A missing or broken file
    /// leaves nobody loaded.
    void loadCharacter();

    /// A character has been loaded, or nobody, in another language perhaps.
    ui::Event<> loaded;

    void chkAgent_Click();
    /// Loads the selected character afresh, also when it is the loaded one: another language gives it another
    /// voice and another greeting, or its own voice back.
    void lstChars_Click();
    void cmdCheckChars_Click() { scanCharacters(); }

    void Agent1_Click(const platform::CharacterClick& click);
    void Agent1_DragStart();
    void Agent1_DragComplete();
    void Agent1_Hide(int cause);
    /// To the next screen, chosen in the character's menu.
    void sendToNextScreen();
    /// A character whose screen has gone is fetched back, and returns when its screen does.
    void screensChanged();

private:
    void unloadCharacter();
    void place(platform::CharacterPlace& character) const;
    [[nodiscard]] int topAtFirst(const platform::Area& screen, int height) const;
    void setVoice(platform::CharacterVoice& voice) const;
    void fillAnimations();
    void nameLabels();
    void enableSpeechControls();
    void say(language::PhraseList list);
    void play(language::PhraseList list);
    [[nodiscard]] std::string clickList() const;
    void remember(const platform::Area& place);

    Needs needs_;
};

} // namespace brovin::companion
