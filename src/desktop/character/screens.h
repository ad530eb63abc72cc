#pragma once

#include <QList>
#include <QPoint>
#include <QRect>
#include <QSize>

namespace brovin::desktop {

/// The part that panels leave free of the screen on which most of a place lies. Off all screens: of the main
/// one.
[[nodiscard]] QRect roomAround(const QRect& place);

/// The rectangle moved into `room` by the shortest way; at its upper left corner where it is too large.
[[nodiscard]] QRect movedInto(QRect rect, const QRect& room);

/// A screen, and how large a character is on it.
struct ScreenForCharacter {
    QRect area;
    QSize size;
};

/// Where a character stands: on which of the screens, and where its corner is.
struct Footing {
    qsizetype screen = 0;
    QPoint place;
};

/// Of a character that is on screen number `current` and whose corner is wanted at `place`: it is on the
/// screen that its middle is on, by the size that it has there. Until its middle would be on another one, it
/// waits at the border: between screens of unlike scale there are places that are on none, and others from
/// which it would be sent to and fro.
[[nodiscard]] Footing footingAt(QPoint place, qsizetype current, const QList<ScreenForCharacter>& screens);

} // namespace brovin::desktop
