#pragma once

#include "character/character_data.h"
#include "character/stage/frame_steps.h"
#include "character/stage/moment.h"
#include "character/stage/sound_effects.h"
#include "character/stage/surface.h"
#include "platform/random.h"

#include <cstddef>
#include <cstdint>
#include <optional>

namespace brovin::character {

/// Plays one animation, frame by frame and in real time: who calls late sees frames left out, but no branch
/// is. When an animation is over its last picture stays.
///
/// The animations, which the player refers to, must outlive it.
class AnimationPlayer {
public:
    struct Needs {
        platform::Random& chance;
        Surface& surface;
        SoundEffects& sounds;
    };
    explicit AnimationPlayer(const Needs& needs) : needs_(needs) {}

    /// Begins with the first frame at the next `advance`. Closes the mouth.
    void play(const Animation& animation);

    /// From the frame that was shown last, goes on by exit frames, else as usual, until the animation is
    /// over, also when it is over already.
    void leave();

    /// Ends the animation on the picture that it has reached.
    void cut() { running_ = false; }

    /// Shows one frame, as if the animation had ended there.
    void pose(const Animation& animation, FrameIndex frame);

    /// Shows nothing.
    void clear();

    [[nodiscard]] bool playing() const { return running_; }
    [[nodiscard]] bool leaving() const { return running_ && leaving_; }

    /// Whether the way out led round in a circle and was given up.
    [[nodiscard]] bool strayed() const { return strayed_; }

    /// The frame that is on the screen; null: none has been.
    [[nodiscard]] const Frame* shown() const { return shown_; }

    /// Lays the nearest mouth that the frame has over it. nullopt: none.
    void setMouth(std::optional<Mouth> mouth);

    /// What is left of the animation is shown in about this time, if it would take longer, and without
    /// sounds.
    void hurry(Milliseconds within);

    /// While nothing is to move, one picture stands for each animation as long as that takes, and then the
    /// one that it ends with. It is left at once.
    void setStill(bool still) { still_ = still; }
    [[nodiscard]] bool still() const { return still_; }

    Wake advance(Moment now);

private:
    Wake advanceStill(Moment now);
    Milliseconds step();
    void enter(FrameIndex frame);
    void showArrival(Moment now);
    void show(const Frame& frame);

    Needs needs_;
    const Frame nothing_;

    const Animation* animation_ = nullptr;
    std::optional<FrameIndex> at_; ///< the frame that the animation has come to, shown or not
    Wake due_;                     ///< when that frame's time is over
    bool running_ = false;
    bool leaving_ = false;
    bool strayed_ = false;
    bool hurried_ = false;
    bool still_ = false;
    double pace_ = 1;          ///< of a frame's time, what it gets
    std::size_t stepsOut_ = 0; ///< how many the way out may still take

    std::optional<FrameIndex> arrival_;  ///< entered, but not on the screen yet
    std::optional<std::uint16_t> sound_; ///< to be started with it

    const Animation* shownAnimation_ = nullptr;
    std::optional<FrameIndex> shownIndex_;
    const Frame* shown_ = nullptr;
    std::optional<Mouth> mouth_;
    const MouthOverlay* overlay_ = nullptr;
};

} // namespace brovin::character
