#pragma once

#include "character/stage/voice.h"
#include "voice/sound_sink.h"
#include "voice/speech_engine.h"
#include "voice/speech_stream.h"

#include <QObject>
#include <QTimer>

#include <chrono>
#include <cstdint>
#include <deque>
#include <memory>
#include <span>
#include <vector>

namespace brovin::voice {

/// Lets one statement be heard, and tells the listener what is heard when.
class SpeechPlayback final : public QObject {
public:
    SpeechPlayback(std::shared_ptr<SpeechEngine> engine, character::VoiceListener& listener);
    ~SpeechPlayback() override;

    /// False: there is nothing to play it on, and it is over.
    [[nodiscard]] bool start(SpeechJob job);

    /// Percent.
    void setLoudness(int percent) { loudness_ = percent; }

    /// At once; the listener hears nothing more, even if it is what it is being told that makes it ask.
    void silence();

    /// Whether the listener is being told something, so that this must not be deleted.
    [[nodiscard]] bool telling() const { return telling_; }

private:
    std::size_t fill(std::span<std::int16_t> samples);
    void tick();
    void takeUnheard(std::int64_t heard);
    bool tellUpTo(std::int64_t heard);
    void tell(const SpeechEvent& event);
    void arm(std::int64_t heard);

    std::shared_ptr<SpeechEngine> engine_;
    std::shared_ptr<SpeechStream> stream_;
    character::VoiceListener* listener_; ///< null: silenced, or told that all is said
    std::unique_ptr<SoundSink> sink_;
    QTimer timer_;
    std::deque<SpeechEvent> due_; ///< by the sample of what is played
    std::int64_t played_ = 0;     ///< samples that were handed over
    std::int64_t end_ = -1;       ///< of the statement, in samples played; -1: not known yet
    int loudness_ = 100;
    bool starved_ = false; ///< the synthesizer was too slow for the device
    bool telling_ = false;
};

} // namespace brovin::voice
