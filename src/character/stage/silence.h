#pragma once

#include "character/stage/sound_output.h"
#include "character/stage/voice.h"

namespace brovin::character {

/// Where nothing can speak: the balloon keeps the pace of reading.
class NoVoice final : public Voice {
public:
    [[nodiscard]] bool available() const override { return false; }
    [[nodiscard]] bool say(const std::vector<SpokenRun>& /*runs*/, VoiceListener& /*listener*/) override {
        return false;
    }
    void silence() override {}
};

/// Where nothing can be heard.
class NoSounds final : public SoundOutput {
public:
    Milliseconds play(std::uint32_t /*sound*/) override { return Milliseconds{0}; }
    void stop() override {}
};

} // namespace brovin::character
