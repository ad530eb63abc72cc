#include "character/stage/presence.h"

#include <algorithm>
#include <cstdint>
#include <limits>

namespace brovin::character {
namespace {

int heldTo16Bits(int coordinate) {
    using Limits = std::numeric_limits<std::int16_t>;
    return std::clamp<int>(coordinate, Limits::min(), Limits::max());
}

} // namespace

Place nearestAllowed(Place place) {
    return {heldTo16Bits(place.x), heldTo16Bits(place.y)};
}

void Presence::appear(VisibilityCause cause) {
    visible_ = true;
    visibilityCause_ = cause;
    surface_.setPlace(place_);
    surface_.setShown(Shown::Yes);
    events_.add(event::Appeared{cause});
}

void Presence::disappear(VisibilityCause cause) {
    visible_ = false;
    dragged_ = false;
    visibilityCause_ = cause;
    surface_.setShown(Shown::No);
    events_.add(event::Disappeared{cause});
}

void Presence::put(Place place) {
    place_ = nearestAllowed(place);
    surface_.setPlace(place_);
}

Place Presence::wayTo(Place target, int width, int height) const {
    const double scale = surface_.scale();
    const auto along = [scale](int from, int to, int side) {
        return static_cast<int>((std::clamp(to, -0x10000, 0x10000) - from) / scale) - side / 2;
    };
    return {along(place_.x, target.x, width), along(place_.y, target.y, height)};
}

void Presence::reportMove(MoveCause cause) {
    moveCause_ = cause;
    events_.add(event::Moved{place_, cause});
}

} // namespace brovin::character
