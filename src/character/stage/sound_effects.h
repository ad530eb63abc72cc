#pragma once

#include "character/stage/moment.h"
#include "character/stage/sound_output.h"

#include <cstdint>

namespace brovin::character {

/// The sounds of animations, as far as the user wants them.
class SoundEffects {
public:
    explicit SoundEffects(SoundOutput& output) : output_(output) {}

    /// Does not touch a sound that already plays.
    void setOn(bool on) { on_ = on; }
    [[nodiscard]] bool on() const { return on_; }

    void start(std::uint32_t sound, Moment now) {
        if (on_)
            until_ = now + output_.play(sound);
    }

    void stop() {
        until_.reset();
        output_.stop();
    }

    /// When the sound that plays will have ended; nullopt: there is none.
    [[nodiscard]] Wake playingUntil(Moment now) const {
        return until_ && *until_ > now ? until_ : std::nullopt;
    }

private:
    SoundOutput& output_;
    bool on_ = true;
    Wake until_;
};

} // namespace brovin::character
