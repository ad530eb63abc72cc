#pragma once

#include "character/stage/event_list.h"
#include "character/stage/moment.h"
#include "character/stage/performer.h"
#include "character/stage/situation.h"
#include "character/stage/sound_effects.h"
#include "platform/random.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <utility>
#include <vector>

namespace brovin::character {

/// How long a character rests before it begins to idle.
inline constexpr Milliseconds kIdleAfter{10'000};
/// Between two idle animations; the pause is drawn from this range.
inline constexpr Milliseconds kShortestIdlePause{5'000};
inline constexpr Milliseconds kLongestIdlePause{15'000};
/// When the second and third level begin, from the beginning of idling on.
inline constexpr Milliseconds kIdleLevel2After{60'000};
inline constexpr Milliseconds kIdleLevel3After{180'000};

/// An idle animation that goes round and round, such as a sleep, is left by itself after a time from this
/// range.
inline constexpr Milliseconds kShortestSleep{180'000};
inline constexpr Milliseconds kLongestSleep{600'000};

/// Between two breaths or blinks, in the pauses between idle animations.
inline constexpr Milliseconds kShortestBreathPause{4'000};
inline constexpr Milliseconds kLongestBreathPause{8'000};

/// How likely what belongs to the season or the hour takes the place of an idle animation, and how long it
/// does not come again.
inline constexpr double kSurprises = 0.1;
inline constexpr Milliseconds kBetweenSurprises{30 * 60'000};

/// What the clock on the wall and the calendar say.
struct TimeOfYear {
    int month = 1; ///< 1 to 12
    int hour = 12; ///< 0 to 23
};

/// How often it looks where the mouse pointer is instead of something else, while it is not tired.
inline constexpr double kLooksAtPointer = 0.2;

/// What a character does that has nothing to do: small movements first, then longer ones, and at last it may
/// fall asleep, from which it wakes now and then. In between it breathes and blinks. It does nothing twice
/// running where it has a choice, and its sounds are few. Between the animations it needs no calls.
class IdleBehaviour {
public:
    struct Needs {
        const SituationTable& situations;
        Performer& performer;
        SoundEffects& sounds;
        platform::Random& chance;
        EventList& events;
        /// The animation that looks where the user's pointer is; nullopt: there is none, or nobody knows.
        std::function<std::optional<std::uint32_t>()> look;
        std::function<TimeOfYear()> today; ///< may be empty
        /// Animations by their indexes, any of them none: what it does between idle animations, such as
        /// breathing and blinking, and in their place late at night and in winter.
        std::vector<std::uint32_t> resting;
        std::vector<std::uint32_t> late;
        std::vector<std::uint32_t> winter;
    };
    explicit IdleBehaviour(Needs needs) : needs_(std::move(needs)) {}

    /// False: no animation begins any more. What is playing goes on.
    void setOn(bool on) { on_ = on; }
    [[nodiscard]] bool on() const { return on_; }

    /// To be called only while there is nothing else to do.
    Wake advance(Moment now);

    /// There is something to do, or the user has shown up: idling ends, and resting begins anew. An animation
    /// leaves by its exit frames or else ends as asked for.
    void interrupt(WithoutExits otherwise);

private:
    Wake sleepOn(Moment now);
    Wake actIfDue(Moment now);
    Wake breatheIfDue(Moment now);
    [[nodiscard]] bool perform(const std::vector<std::uint32_t>& all, std::optional<std::uint32_t>& last);
    [[nodiscard]] bool surprise(Moment now);
    [[nodiscard]] bool lookAround(int level);
    void begin(Moment now);
    [[nodiscard]] int levelAt(Moment now) const;
    std::optional<Moment> beginOfNextLevel(int level) const;

    Needs needs_;
    bool on_ = true;
    std::optional<Moment> restingSince_;
    std::optional<Moment> idlingSince_;
    std::optional<Moment> nextAct_; ///< nullopt while an animation plays
    std::optional<Moment> nextBreath_;
    bool acting_ = false; ///< what may be playing is an idle animation
    Moment actingSince_;
    std::optional<Moment> wakesAt_; ///< drawn only for what lasts so long
    std::optional<std::uint32_t> lastAct_;
    std::optional<std::uint32_t> lastBreath_;
    std::optional<Moment> surprisedAt_;
};

} // namespace brovin::character
