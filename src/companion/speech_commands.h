#pragma once

#include "companion/actor.h"
#include "companion/announcer.h"
#include "companion/phrase_engine.h"
#include "language/language_tables.h"
#include "platform/random.h"
#include "ui/pages/reminders_page.h"
#include "ui/pages/speech_page.h"

#include <string>

namespace brovin::companion {

/// What the user makes the character say and do, and how it may address him.
class SpeechCommands {
public:
    struct Needs {
        ui::SpeechPage& speechPage;
        const ui::RemindersPage& remindersPage;
        const language::LanguageTables& tables;
        Actor& actor;
        PhraseEngine& phrases;
        Announcer& announcer;
        platform::Random& random;
    };
    explicit SpeechCommands(const Needs& needs) : needs_(needs) {}

    void cmdSay_Click();
    void cmdDo_Click();
    void cmdRepeat_Click();
    /// Tries the reminder out; in a message box where there is nobody to speak it.
    void cmdSpeak_Click();
    void cmdStop_Click() const { needs_.actor.stop(); }

    void lstAnims_Click();
    void lstAnims_GotFocus() { lstAnims_Click(); }
    void txtSay_GotFocus();

private:
    void askForText();
    /// Says one of the alternatives; `otherwise` where there is nothing to pick.
    void say(const std::string& list, const std::string& otherwise);
    void say(language::PhraseList list);
    /// Enter presses this button, and no other one.
    void setDefault(ui::Button& button);

    Needs needs_;
};

} // namespace brovin::companion
