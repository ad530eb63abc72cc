#pragma once

#include <QRect>

namespace brovin::desktop {

/// The part that panels leave free of the screen on which most of a place lies. Off all screens: of the main
/// one.
[[nodiscard]] QRect roomAround(const QRect& place);

/// The rectangle moved into `room` by the shortest way; at its upper left corner where it is too large.
[[nodiscard]] QRect movedInto(QRect rect, const QRect& room);

} // namespace brovin::desktop
