#pragma once

#include "character/stage/act.h"
#include "character/stage/event.h"

#include <cstdint>
#include <optional>

namespace brovin::character {

enum class Manner : std::uint8_t {
    Animated,
    Fast, ///< without the animation of the state
};

/// Appears with an animation of the Showing state. Stopped, it takes full effect at once.
class ShowAct final : public Act {
public:
    ShowAct(const StageParts& parts, Manner manner) : parts_(parts), manner_(manner) {}

    ActProgress advance(Moment now) override;
    void stop() override;

private:
    StageParts parts_;
    Manner manner_;
    std::optional<std::uint32_t> animation_; ///< picked when the act begins
};

/// Leads back to the neutral pose, goes with an animation of the Hiding state, and disappears. Stopped, it
/// takes full effect at once.
class HideAct final : public Act {
public:
    HideAct(const StageParts& parts, Manner manner, VisibilityCause cause)
        : parts_(parts), manner_(manner), cause_(cause) {}

    ActProgress advance(Moment now) override;
    void stop() override;

private:
    StageParts parts_;
    Manner manner_;
    VisibilityCause cause_;
    bool begun_ = false;
};

} // namespace brovin::character
