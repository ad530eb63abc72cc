#pragma once

#include "character/stage/situation.h"
#include "character/stage/surface.h"

#include <cstdint>

namespace brovin::character {

/// As the character sees it that faces the user: what is left on the screen is at its right hand.
enum class Direction : std::uint8_t { Up, Down, Left, Right };

/// The greater distance decides, sideways when they are equal. The place itself is down.
[[nodiscard]] Direction directionTo(Place from, Place to);

[[nodiscard]] Situation movingTowards(Direction direction);
[[nodiscard]] Situation gesturingTowards(Direction direction);

} // namespace brovin::character
