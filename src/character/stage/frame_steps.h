#pragma once

#include "character/character_data.h"
#include "character/stage/moment.h"
#include "platform/random.h"

#include <cstdint>
#include <optional>

namespace brovin::character {

using FrameIndex = std::uint16_t;

/// Whether a frame is ever seen; one without images and duration only exists for its branches.
[[nodiscard]] bool isShown(const Frame& frame);

/// The frame that follows one whose time is over: one draw picks a branch, or else the next frame in order.
/// nullopt: the animation is over.
[[nodiscard]] std::optional<FrameIndex> nextFrame(const Animation& animation, FrameIndex frame,
                                                  platform::Random& chance);

/// The same for an animation that is to end early: the exit frame goes before all else.
[[nodiscard]] std::optional<FrameIndex> nextFrameOut(const Animation& animation, FrameIndex frame,
                                                     platform::Random& chance);

/// How long an animation goes on from behind `frame` (from its beginning: nullopt) by its most probable way,
/// or by its exits when `leaving`. Of a loop, one round.
[[nodiscard]] Milliseconds timeLeft(const Animation& animation, std::optional<FrameIndex> frame,
                                    bool leaving);

/// Whether any frame says how to leave early.
[[nodiscard]] bool hasExits(const Animation& animation);

/// What stands for an animation where nothing moves.
struct StillPose {
    std::optional<FrameIndex> frame;     ///< nullopt: it shows no images
    std::optional<std::uint16_t> sound;  ///< the first on the way
    std::optional<Milliseconds> time{0}; ///< as long as the animation takes; nullopt: it has no end
};

/// Of an animation that another one leads back from, the pose that it ends in; of all others, what they show
/// half way, by their most probable way.
[[nodiscard]] StillPose stillPose(const Animation& animation);

/// The last frame that shows images: the picture that an animation leaves behind. nullopt: none does.
[[nodiscard]] std::optional<FrameIndex> lastPicture(const Animation& animation);

} // namespace brovin::character
