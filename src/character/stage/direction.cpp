#include "character/stage/direction.h"

#include <array>
#include <cstddef>
#include <cstdlib>

namespace brovin::character {

Direction directionTo(Place from, Place to) {
    const std::int64_t dx = std::int64_t{to.x} - from.x;
    const std::int64_t dy = std::int64_t{to.y} - from.y;
    if (dx != 0 && std::abs(dx) >= std::abs(dy))
        return dx < 0 ? Direction::Right : Direction::Left;
    return dy < 0 ? Direction::Up : Direction::Down;
}

Situation movingTowards(Direction direction) {
    constexpr std::array kMoving = {Situation::MovingUp, Situation::MovingDown, Situation::MovingLeft,
                                    Situation::MovingRight};
    return kMoving[static_cast<std::size_t>(direction)];
}

Situation gesturingTowards(Direction direction) {
    constexpr std::array kGesturing = {Situation::GesturingUp, Situation::GesturingDown,
                                       Situation::GesturingLeft, Situation::GesturingRight};
    return kGesturing[static_cast<std::size_t>(direction)];
}

} // namespace brovin::character
