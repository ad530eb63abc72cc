#include "desktop/character/screens.h"

#include <QGuiApplication>
#include <QScreen>

#include <algorithm>

namespace brovin::desktop {

QRect roomAround(const QRect& place) {
    const QList<QScreen*> screens = QGuiApplication::screens();
    if (screens.isEmpty())
        return {};
    const auto standing = [&place](const QScreen* screen) {
        const QRect part = screen->geometry() & place;
        return part.isEmpty() ? 0 : part.width() * part.height();
    };
    const auto most = std::max_element(screens.begin(), screens.end(), [standing](QScreen* a, QScreen* b) {
        return standing(a) < standing(b);
    });
    return (*most)->availableGeometry();
}

QRect movedInto(QRect rect, const QRect& room) {
    rect.moveRight(std::min(rect.right(), room.right()));
    rect.moveBottom(std::min(rect.bottom(), room.bottom()));
    rect.moveLeft(std::max(rect.left(), room.left()));
    rect.moveTop(std::max(rect.top(), room.top()));
    return rect;
}

} // namespace brovin::desktop
