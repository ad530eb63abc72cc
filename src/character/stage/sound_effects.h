#pragma once

#include "character/stage/moment.h"
#include "character/stage/sound_output.h"

#include <algorithm>
#include <cstdint>
#include <utility>
#include <vector>

namespace brovin::character {

/// The sounds of animations, as far as the user wants them.
class SoundEffects {
public:
    explicit SoundEffects(SoundOutput& output) : output_(output) {}

    /// Does not touch a sound that already plays.
    void setOn(bool on) { on_ = on; }
    [[nodiscard]] bool on() const { return on_; }

    /// What follows is an animation that nobody has asked for: of its sounds each is heard once, however
    /// often its frames come round, and of all such animations together no more than two in a minute.
    void beginCalm() {
        calm_ = true;
        heard_.clear();
    }
    void endCalm() { calm_ = false; }

    void start(std::uint32_t sound, Moment now) {
        if (on_ && (!calm_ || goesCalmly(sound, now)))
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
    static constexpr Milliseconds kCalmMinute{60'000};

    [[nodiscard]] bool goesCalmly(std::uint32_t sound, Moment now) {
        const bool tooOften = lastButOne_ && now - *lastButOne_ < kCalmMinute;
        if (tooOften || std::find(heard_.begin(), heard_.end(), sound) != heard_.end())
            return false;
        heard_.push_back(sound);
        lastButOne_ = std::exchange(last_, now);
        return true;
    }

    SoundOutput& output_;
    bool on_ = true;
    bool calm_ = false;
    std::vector<std::uint32_t> heard_; ///< of the calm animation's sounds
    Wake last_;                        ///< when the last calm sound began, and the one before
    Wake lastButOne_;
    Wake until_;
};

} // namespace brovin::character
