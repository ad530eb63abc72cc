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

Footing footingAt(QPoint place, qsizetype current, const QList<ScreenForCharacter>& screens) {
    constexpr int kBorder = 2; // rounding at the very edge must not make another screen of it
    const auto inner = [](const ScreenForCharacter& screen) {
        return screen.area.adjusted(kBorder, kBorder, -kBorder, -kBorder);
    };
    const auto fits = [place, inner](const ScreenForCharacter& screen) {
        return inner(screen).contains(QRect(place, screen.size).center());
    };
    const ScreenForCharacter& here = screens[current];
    if (fits(here))
        return {current, place};
    const auto other = std::find_if(screens.begin(), screens.end(), fits);
    if (other != screens.end())
        return {other - screens.begin(), place};
    const QPoint middle = QRect(place, here.size).center();
    const QRect nearest = movedInto(QRect(middle, QSize(1, 1)), inner(here));
    return {current, place + nearest.topLeft() - middle};
}

} // namespace brovin::desktop
