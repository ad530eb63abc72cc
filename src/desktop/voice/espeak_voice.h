#pragma once

#include "character/character_data.h"
#include "character/stage/voice.h"
#include "desktop/voice/speech_playback.h"
#include "voice/pulse_connection.h"
#include "voice/voice_choice.h"

#include <memory>
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

    /// What it speaks with from the next statement on.
    [[nodiscard]] VoiceChoice& choice() { return choice_; }

    /// Percent, at once. At 0 it declines what comes next, which is then paced for reading.
    void setLoudness(int percent);

    [[nodiscard]] bool available() const override;
    [[nodiscard]] bool say(const std::vector<character::SpokenRun>& runs,
                           character::VoiceListener& listener) override;
    void silence() override;

private:
    VoiceChoice choice_;
    int loudness_ = 100;
    mutable std::shared_ptr<PulseConnection> server_; ///< kept, because making it takes longer than using it
    std::unique_ptr<SpeechPlayback> playback_;
};

} // namespace brovin::voice
