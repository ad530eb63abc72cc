#pragma once

#include "character/character_data.h"
#include "character/stage/sound_output.h"
#include "desktop/voice/sound_sink.h"
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

private:
    void fill(std::span<char> bytes);

    std::shared_ptr<const character::CharacterData> character_;
    Sound sound_;
    std::size_t next_ = 0; ///< byte of it
    std::unique_ptr<SoundSink> sink_;
    QTimer over_;
};

} // namespace brovin::voice
