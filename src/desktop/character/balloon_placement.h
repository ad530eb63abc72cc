#pragma once

#include <QPoint>
#include <QRect>
#include <QRegion>
#include <QSize>
#include <Qt>

#include <cstdint>

namespace brovin::desktop {

enum class BalloonSide : std::uint8_t { Above, Right, Left, Below };

/// Where a balloon is on the screen. The window is large enough for the bubble and its tip.
struct BalloonPlace {
    BalloonSide side = BalloonSide::Above; ///< of the figure
    QRect bubble;
    QPoint tip; ///< where the tip ends, at the figure
    QRect window;

    bool operator==(const BalloonPlace&) const = default;
};

/// How far the tip reaches out of the bubble.
inline constexpr int kTipLength = 14;

/// Puts a bubble beside a figure: above it; where there is no room, to the side that has more; else below. Of
/// the sides that have room, one where it covers less of `work` goes before the others. Where no side has
/// room it covers the figure, but never leaves `room` unless it is larger.
[[nodiscard]] BalloonPlace placeBalloon(QSize bubble, const QRect& figure, const QRect& room,
                                        const QRegion& work);

/// A bubble of this size in the place of the full one, for words that come one after another: at first in the
/// middle above the tip, then the edge at which its lines begin stays where it was `before`, counted from the
/// full bubble's corner, as far as it has room and meets the tip. An invalid `before`: there was none.
[[nodiscard]] QRect growingBubble(const BalloonPlace& full, QSize size, const QRect& before,
                                  Qt::LayoutDirection lines);

} // namespace brovin::desktop
