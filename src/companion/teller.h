#pragma once

#include "companion/speech.h"

namespace brovin::companion {

/// Whatever it takes to tell the user something, put together: phrases, the character while there is one, and
/// message boxes where there is none.
class Teller {
public:
    struct Needs {
        const ui::CharacterPage& characterPage;
        const settings::Settings& settings;
        const language::LanguageTables& tables;
        platform::Dialogs& dialogs;
        const platform::Letters& letters;
        platform::Random& random;
    };
    explicit Teller(const Needs& needs)
        : phrases({needs.characterPage, needs.settings, needs.tables, actor, needs.letters, needs.random}),
          announcer({needs.characterPage, actor, phrases, needs.dialogs}), speech{needs.tables.messageTable,
                                                                                  phrases, announcer} {}
    Teller(const Teller&) = delete;
    Teller& operator=(const Teller&) = delete;

    Actor actor; ///< nobody, until a host loads a character
    PhraseEngine phrases;
    Announcer announcer;
    Speech speech;
};

} // namespace brovin::companion
