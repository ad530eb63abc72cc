#pragma once

#include "character/stage/sound_output.h"
#include "fakes/fake_stage_log.h"

#include <cstdint>
#include <map>
#include <string>

namespace brovin::fakes {

/// Writes down which sounds are started; each takes as long as the test says, or cannot be played.
class FakeStageSound final : public character::SoundOutput {
public:
    explicit FakeStageSound(StageLog& log) : log_(log) {}

    std::map<std::uint32_t, character::Milliseconds> lengths;

    character::Milliseconds play(std::uint32_t sound) override {
        log_.add("sound " + std::to_string(sound));
        playing_ = true;
        const auto length = lengths.find(sound);
        return length == lengths.end() ? character::Milliseconds{0} : length->second;
    }
    void stop() override {
        if (playing_)
            log_.add("sound off");
        playing_ = false;
    }

private:
    StageLog& log_;
    bool playing_ = false;
};

} // namespace brovin::fakes
