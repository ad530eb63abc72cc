#include "desktop/character/company.h"

#include <algorithm>

namespace brovin::desktop {
namespace {

constexpr int kGap = 6; ///< between a window and what it stands beside

QRect centred(QSize size, const QRect& room) {
    QRect place(QPoint(), size.boundedTo(room.size()));
    place.moveCenter(room.center());
    return place;
}

/// The part of the room that is free at the wider side of an area.
QRect freeBeside(const QRect& area, const QRect& room) {
    QRect left = room;
    left.setRight(area.left() - kGap - 1);
    QRect right = room;
    right.setLeft(area.right() + kGap + 1);
    return right.width() >= left.width() ? right : left;
}

} // namespace

QRect placeBeside(const QVector<QRect>& company, QSize wanted, int leastWidth, const QRect& room) {
    const QRect middle = centred(wanted, room);
    for (const QRect& area : company) {
        if (!area.intersects(middle))
            continue;
        const QRect beside = freeBeside(area, room);
        if (beside.width() < leastWidth)
            continue;
        QRect place = middle;
        place.setWidth(std::min(middle.width(), beside.width()));
        place.moveLeft(std::clamp(middle.left(), beside.left(), beside.right() + 1 - place.width()));
        return place;
    }
    return middle;
}

} // namespace brovin::desktop
