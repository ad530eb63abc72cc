#pragma once

#include "character/character_data.h"
#include "character/stage/sound_output.h"
#include "voice/sound_sink.h"
#include "voice/wave_file.h"

#include <QTimer>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>

namespace brovin::voice {

/// Plays a character's sounds. To be used on the thread of the application's events. Where there is no sound
/// device a sound takes no time.
class SoundPlayer final : public character::SoundOutput {
public:
    explicit SoundPlayer(std::shared_ptr<const character::CharacterData> character);

    character::Milliseconds play(std::uint32_t sound) override;
    void stop() override;
    /// Percent, at once. At 0 a sound takes no time.
    void setLoudness(int percent) { loudness_ = percent; }

private:
    std::size_t fill(std::span<std::int16_t> samples);

    std::shared_ptr<const character::CharacterData> character_;
    Sound sound_;
    int loudness_ = 100;
    std::size_t next_ = 0; ///< sample of it
    std::unique_ptr<SoundSink> sink_;
    QTimer feed_;
    QTimer over_;
};

} // namespace brovin::voice
