#pragma once

#include "character/character_data.h"
#include "character/stage/spoken_run.h"
#include "voice/speech_engine.h"
#include "voice/timbre.h"

#include <memory>
#include <string>
#include <vector>

namespace brovin::voice {

/// Which of the synthesizer's voices a character speaks with.
class VoiceChoice {
public:
    /// The user's language, by a lower-case tag such as "en-us", with the character's own voice. What it
    /// takes from the character it takes here.
    VoiceChoice(const character::CharacterData& character, std::string usersLanguage);

    /// Windows language identifier. Decides the voice unless a mode has been set. A language without a voice
    /// is read by the user's. False: no such language, and nothing changes.
    bool setLanguageId(long id);

    /// The identifier of a known voice (braces are optional), or the name of one of the synthesizer's own,
    /// such as "English (America)", "de" or "en-us+f3". Empty: the character's own again. False: there is no
    /// such voice, and nothing changes.
    bool setTtsModeId(const std::string& id);

    /// The voice that speaks, as the synthesizer calls it: "gmw/en-US+f3". Empty: there is no synthesizer.
    [[nodiscard]] std::string voiceName() const;
    [[nodiscard]] const Timbre& timbre() const { return timbre_; }

    /// A statement as it is to be synthesised, in foreign letters by a voice that can read them. Without
    /// a voice: there is none.
    [[nodiscard]] SpeechJob jobFor(const std::vector<character::SpokenRun>& runs) const;

    [[nodiscard]] const std::shared_ptr<SpeechEngine>& engine() const { return engine_; }

private:
    [[nodiscard]] std::string identifier() const;

    std::shared_ptr<SpeechEngine> engine_;
    std::string usersLanguage_;
    Timbre own_;
    std::string language_; ///< by its tag; empty: the user's
    std::string chosen_;   ///< the identifier of the voice that a mode asks for; empty: by language
    Timbre timbre_;
};

} // namespace brovin::voice
