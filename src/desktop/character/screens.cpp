#include "desktop/character/screens.h"

#include <QGuiApplication>
#include <QScreen>

#include <algorithm>

namespace brovin::desktop {

QRect roomAround(const QRect& place) {
    const QScreen* const there = QGuiApplication::screenAt(place.center());
    if (there != nullptr)
        return there->availableGeometry();
    const QList<QScreen*> screens = QGuiApplication::screens();
    const auto touched = std::find_if(screens.begin(), screens.end(),
                                      [&place](QScreen* s) { return s->geometry().intersects(place); });
    const QScreen* const screen = touched == screens.end() ? QGuiApplication::primaryScreen() : *touched;
    return screen == nullptr ? QRect() : screen->availableGeometry();
}

bool onAnyScreen(const QRect& place) {
    const QList<QScreen*> screens = QGuiApplication::screens();
    return std::any_of(screens.begin(), screens.end(),
                       [&place](QScreen* screen) { return screen->geometry().intersects(place); });
}

QRect movedInto(QRect rect, const QRect& room) {
    rect.moveRight(std::min(rect.right(), room.right()));
    rect.moveBottom(std::min(rect.bottom(), room.bottom()));
    rect.moveLeft(std::max(rect.left(), room.left()));
    rect.moveTop(std::max(rect.top(), room.top()));
    return rect;
}

} // namespace brovin::desktop
