#include "desktop/character/balloon_placement.h"

#include "desktop/character/screens.h"

#include <QVector>

#include <algorithm>

namespace brovin::desktop {
namespace {

/// Behind QRect's own right() and bottom(), which name the last pixel.
int rightEdge(const QRect& rect) {
    return rect.x() + rect.width();
}
int bottomEdge(const QRect& rect) {
    return rect.y() + rect.height();
}

/// About where a figure's mouth is.
int mouthHeight(const QRect& figure) {
    return figure.y() + figure.height() / 3;
}

/// The window's rectangle, before it is moved into the room.
QRect windowAt(BalloonSide side, QSize bubble, const QRect& figure) {
    const QSize upright(bubble.width(), bubble.height() + kTipLength);
    const QSize lying(bubble.width() + kTipLength, bubble.height());
    const int middle = figure.x() + (figure.width() - bubble.width()) / 2;
    const int level = mouthHeight(figure) - bubble.height() / 2;
    switch (side) {
    case BalloonSide::Above:
        return {QPoint(middle, figure.y() - upright.height()), upright};
    case BalloonSide::Right:
        return {QPoint(rightEdge(figure), level), lying};
    case BalloonSide::Left:
        return {QPoint(figure.x() - lying.width(), level), lying};
    case BalloonSide::Below:
        break;
    }
    return {QPoint(middle, bottomEdge(figure)), upright};
}

/// In the order of preference.
QVector<BalloonSide> sidesWithRoom(QSize bubble, const QRect& figure, const QRect& room) {
    const int right = rightEdge(room) - rightEdge(figure);
    const int left = figure.x() - room.x();
    QVector<BalloonSide> sides;
    if (figure.y() - room.y() >= bubble.height() + kTipLength)
        sides += BalloonSide::Above;
    if (std::max(left, right) >= bubble.width() + kTipLength)
        sides += right >= left ? BalloonSide::Right : BalloonSide::Left;
    if (std::min(left, right) >= bubble.width() + kTipLength)
        sides += right >= left ? BalloonSide::Left : BalloonSide::Right;
    if (bottomEdge(room) - bottomEdge(figure) >= bubble.height() + kTipLength)
        sides += BalloonSide::Below;
    return sides;
}

/// How many pixels of `work` lie below a window.
int covered(const QRect& window, const QRegion& work) {
    int pixels = 0;
    for (const QRect& part : work& window)
        pixels += part.width() * part.height();
    return pixels;
}

QRect bubbleIn(const QRect& window, BalloonSide side) {
    switch (side) {
    case BalloonSide::Above:
        return window.adjusted(0, 0, 0, -kTipLength);
    case BalloonSide::Right:
        return window.adjusted(kTipLength, 0, 0, 0);
    case BalloonSide::Left:
        return window.adjusted(0, 0, -kTipLength, 0);
    case BalloonSide::Below:
        break;
    }
    return window.adjusted(0, kTipLength, 0, 0);
}

QPoint tipIn(const QRect& window, BalloonSide side, const QRect& figure) {
    const QPoint target(figure.center().x(), mouthHeight(figure));
    const int x = std::clamp(target.x(), window.left(), window.right());
    const int y = std::clamp(target.y(), window.top(), window.bottom());
    switch (side) {
    case BalloonSide::Above:
        return {x, window.bottom()};
    case BalloonSide::Right:
        return {window.left(), y};
    case BalloonSide::Left:
        return {window.right(), y};
    case BalloonSide::Below:
        break;
    }
    return {x, window.top()};
}

} // namespace

BalloonPlace placeBalloon(QSize bubble, const QRect& figure, const QRect& room, const QRegion& work) {
    const auto windowOn = [&](BalloonSide side) { return movedInto(windowAt(side, bubble, figure), room); };
    const QVector<BalloonSide> sides = sidesWithRoom(bubble, figure, room);
    const auto best = std::min_element(sides.begin(), sides.end(), [&](BalloonSide a, BalloonSide b) {
        return covered(bubbleIn(windowOn(a), a), work) < covered(bubbleIn(windowOn(b), b), work);
    });
    BalloonPlace place;
    place.side = best == sides.end() ? BalloonSide::Above : *best;
    place.window = windowOn(place.side);
    place.bubble = bubbleIn(place.window, place.side);
    place.tip = tipIn(place.window, place.side, figure);
    return place;
}

QRect growingBubble(const BalloonPlace& full, QSize size, const QRect& before, Qt::LayoutDirection lines) {
    const QRect& room = full.bubble;
    QRect bubble({}, size.boundedTo(room.size()));
    bubble.moveCenter(full.tip);
    if (before.isValid()) {
        bubble.moveTo(room.topLeft() + before.topLeft());
        if (lines == Qt::RightToLeft)
            bubble.moveRight(room.x() + before.right());
    }
    const auto meet = [](int at, int length, int tip) { return std::clamp(at, tip - length + 1, tip); };
    if (full.side == BalloonSide::Above || full.side == BalloonSide::Below)
        bubble.moveLeft(meet(bubble.x(), bubble.width(), full.tip.x()));
    else
        bubble.moveTop(meet(bubble.y(), bubble.height(), full.tip.y()));
    if (full.side == BalloonSide::Above)
        bubble.moveBottom(room.bottom());
    else if (full.side == BalloonSide::Below)
        bubble.moveTop(room.top());
    else if (full.side == BalloonSide::Right)
        bubble.moveLeft(room.left());
    else
        bubble.moveRight(room.right());
    return movedInto(bubble, room);
}

} // namespace brovin::desktop
