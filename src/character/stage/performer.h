#pragma once

#include "character/character_data.h"
#include "character/stage/animation_player.h"
#include "character/stage/situation.h"

#include <cstdint>
#include <optional>

namespace brovin::character {

/// What becomes of an animation that has no exit frames when it is to end early.
enum class WithoutExits : std::uint8_t {
    Cut,    ///< it ends on the spot
    PlayOn, ///< it goes on to its end
};

/// How long each kind of animation takes at most while something else waits for it.
inline constexpr Milliseconds kLongestWayBack{400};
inline constexpr Milliseconds kLongestPose{200};
inline constexpr Milliseconds kLongestEntrance{700};

/// What of a performance is to be over soon, because something waits for it.
enum class Haste : std::uint8_t {
    None,
    WayBack,  ///< what leads back from an animation
    Pose,     ///< and the animation itself, which only leads to the pose for speaking
    Entrance, ///< and the animation itself, by which the character appears
};

/// Plays animations one after another, and between them what leads back from the one before: its return
/// animation, or its exit frames.
class Performer {
public:
    struct Needs {
        const CharacterData& character;
        const SituationTable& situations;
        platform::Random& chance;
        Surface& surface;
        SoundEffects& sounds;
    };
    explicit Performer(const Needs& needs)
        : needs_(needs), player_({needs.chance, needs.surface, needs.sounds}) {}

    /// Plays the animation at the next `advance`, after what leads back from the last one.
    void perform(std::uint32_t animation);

    /// One of the situation's animations at random. False: it has none, and nothing happens.
    [[nodiscard]] bool perform(Situation situation);

    /// Ends what is playing, with its sound, by its exit frames or else as asked for. What is under way back
    /// is let go on, since it is the shortest way to a pose that others begin with.
    void stop(WithoutExits otherwise = WithoutExits::Cut);

    /// Shows the pose that an animation ends in, with nothing to lead back from.
    void poseAtEndOf(std::uint32_t animation);

    /// Shows the pose that the character speaks in, or ends up in when it appears.
    void poseNeutral();

    /// Makes the pose that is shown one that nothing has to lead back from.
    void settle() { owes_ = false; }

    /// Shows nothing and forgets what it showed.
    void clear();

    /// Whether anything is playing, or about to.
    [[nodiscard]] bool busy() const { return next_.has_value() || player_.playing(); }

    /// Whether `advance` has something to begin at once.
    [[nodiscard]] bool pending() const { return pending_; }

    /// Whether the picture has mouths to speak with.
    [[nodiscard]] bool canSpeak() const;
    void setMouth(std::optional<Mouth> mouth) { player_.setMouth(still() ? std::nullopt : mouth); }

    /// While nothing is to move, poses stand for animations, and nothing leads back from them.
    void setStill(bool still);
    [[nodiscard]] bool still() const { return player_.still(); }

    Wake advance(Moment now, Haste haste);

private:
    enum class Phase : std::uint8_t { Resting, GoingBack, Acting };

    void leaveOrCut();
    void endPhase();
    void beginNext();
    bool goBackBefore(std::uint32_t next);
    [[nodiscard]] bool continuesPose(std::uint32_t next, std::uint32_t wayBack) const;
    [[nodiscard]] const Animation& animation(std::uint32_t index) const {
        return needs_.character.animations[index];
    }

    Needs needs_;
    AnimationPlayer player_;
    Phase phase_ = Phase::Resting;
    std::uint32_t last_ = 0;            ///< the animation that was played last
    bool owes_ = false;                 ///< it has not been led back from
    bool nextLeadsBack_ = false;        ///< the next animation is itself the way back
    std::optional<std::uint32_t> next_; ///< waits for what leads back
    bool pending_ = false;
};

} // namespace brovin::character
