#pragma once

#include "character/character_data.h"
#include "character/stage/voice.h"
#include "desktop/voice/speech_engine.h"
#include "desktop/voice/speech_playback.h"
#include "desktop/voice/timbre.h"

#include <memory>
#include <string>
#include <vector>

namespace brovin::voice {

/// A character's voice, by the speech synthesizer. To be used on the thread of the application's events.
class EspeakVoice final : public character::Voice {
public:
    /// Speaks the user's language with the character's own voice. What it takes from the character it takes
    /// here.
    explicit EspeakVoice(const character::CharacterData& character);
    ~EspeakVoice() override;
    EspeakVoice(const EspeakVoice&) = delete;
    EspeakVoice& operator=(const EspeakVoice&) = delete;

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

    /// A statement as it would be synthesised.
    [[nodiscard]] SpeechJob jobFor(const std::vector<character::SpokenRun>& runs) const;

    [[nodiscard]] bool available() const override;
    [[nodiscard]] bool say(const std::vector<character::SpokenRun>& runs,
                           character::VoiceListener& listener) override;
    void silence() override;

private:
    [[nodiscard]] std::string identifier() const;

    std::shared_ptr<SpeechEngine> engine_;
    Timbre own_;
    std::string language_; ///< by its tag; empty: the user's
    std::string chosen_;   ///< the identifier of the voice that a mode asks for; empty: by language
    Timbre timbre_;
    std::unique_ptr<SpeechPlayback> playback_;
};

} // namespace brovin::voice
