#pragma once

#include "character/stage/act.h"
#include "character/stage/glide.h"
#include "character/stage/surface.h"

#include <cstdint>
#include <optional>

namespace brovin::character {

/// Takes the travelling pose for the direction and glides to a place in it.
class MoveAct final : public Act {
public:
    /// `time` is that of the glide, whatever the distance; zero or less: without animation and at once.
    MoveAct(const StageParts& parts, Place target, Milliseconds time)
        : parts_(parts), target_(target), time_(time) {}

    ActProgress advance(Moment now) override;
    void stop() override;

private:
    enum class Phase : std::uint8_t { NotBegun, TakingPose, Gliding };

    ActProgress begin(Moment now);
    ActProgress takePose(Moment now);
    void setOut(Moment now, Milliseconds time);
    ActProgress glideOn(Moment now);
    ActProgress arrive();

    StageParts parts_;
    Place target_;
    Milliseconds time_;
    Phase phase_ = Phase::NotBegun;
    std::optional<std::uint32_t> pose_; ///< the animation that takes it
    std::optional<Glide> glide_;
    Place put_; ///< where the glide has put the character last
};

} // namespace brovin::character
