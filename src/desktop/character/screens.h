#pragma once

#include <QRect>

namespace brovin::desktop {

/// The part of the screen around a place that panels leave free. Off all screens: of the main one.
[[nodiscard]] QRect roomAround(const QRect& place);

/// Whether anything of a place lies on a screen.
[[nodiscard]] bool onAnyScreen(const QRect& place);

/// The rectangle moved into `room` by the shortest way; at its upper left corner where it is too large.
[[nodiscard]] QRect movedInto(QRect rect, const QRect& room);

} // namespace brovin::desktop
