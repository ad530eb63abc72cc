#pragma once

#include "platform/character_service.h"

#include <cstdint>
#include <vector>

namespace brovin::companion {

// Where a character may stand on one screen or several. A list of screens is never empty; the first is the
// main one.

using Screens = std::vector<platform::Area>;

/// Pixels that both have; 0: none.
[[nodiscard]] std::int64_t overlap(const platform::Area& a, const platform::Area& b);

/// The screen on which most of a character stands; the main one where it is outside of all.
[[nodiscard]] const platform::Area& screenUnder(const platform::Area& character, const Screens& screens);

/// Whether more than half of a character lies beyond an edge, whichever screen one takes.
[[nodiscard]] bool isLost(const platform::Area& character, const Screens& screens);

/// Moved by the shortest way onto the nearest screen, whole; at its upper left corner where it is too large.
[[nodiscard]] platform::Area broughtBack(platform::Area character, const Screens& screens);

/// A character that stands between two screens of unequal height (or width, where one is above the other)
/// moved off the border, onto the one that has most of it. All others stay.
[[nodiscard]] platform::Area onOneScreen(platform::Area character, const Screens& screens);

/// The next screen to the right of the one that most of it is on; behind the last comes the first.
[[nodiscard]] platform::Area nextScreen(const platform::Area& character, Screens screens);

/// As it stands, but on another screen, on which it is as large as `there` is.
[[nodiscard]] platform::Area likewiseOn(const platform::Area& screen, const platform::Area& character,
                                        platform::Area there, const Screens& screens);

} // namespace brovin::companion
