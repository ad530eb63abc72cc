#pragma once

#include "character/stage/act.h"
#include "character/stage/surface.h"

#include <cstdint>
#include <optional>
#include <variant>

namespace brovin::character {

/// Plays an animation of the character, or gestures at a place on the screen. Lasts as long as the animation,
/// and as its sound where that is longer.
class PlayAct final : public Act {
public:
    /// `animation` is one of the character's.
    PlayAct(const StageParts& parts, std::uint32_t animation) : parts_(parts), what_(animation) {}
    PlayAct(const StageParts& parts, Place gestureAt) : parts_(parts), what_(gestureAt) {}

    ActProgress advance(Moment now) override;
    void stop() override { parts_.performer.stop(); }

private:
    [[nodiscard]] RequestError begin();
    [[nodiscard]] std::optional<std::uint32_t> gestureTowards(Place place) const;

    StageParts parts_;
    std::variant<std::uint32_t, Place> what_;
    bool begun_ = false;
};

} // namespace brovin::character
