#include "desktop/widgets/whole_frames.h"

#include <QApplication>
#include <QPainter>
#include <QScreen>
#include <QStyleOption>

#include <algorithm>
#include <cmath>

namespace brovin::desktop {
namespace {

/// Of the line around a frame, between what it lies on and the text.
constexpr double kBackground = 0.75;

bool isWhole(qreal scale) {
    return std::abs(scale - std::round(scale)) < 0.01;
}

QColor lineColour(const QPalette& palette) {
    const QColor below = palette.color(QPalette::Active, QPalette::Window);
    const QColor text = palette.color(QPalette::Active, QPalette::WindowText);
    const auto mixed = [](int a, int b) { return qRound(kBackground * a + (1 - kBackground) * b); };
    return {mixed(below.red(), text.red()), mixed(below.green(), text.green()),
            mixed(below.blue(), text.blue())};
}

} // namespace

void WholeFrames::installWhereNeeded() {
    const auto screens = QGuiApplication::screens();
    if (QApplication::style()->name() == QLatin1String("fusion") &&
        std::any_of(screens.begin(), screens.end(),
                    [](const QScreen* screen) { return !isWhole(screen->devicePixelRatio()); }))
        QApplication::setStyle(new WholeFrames);
} // NOLINT(clang-analyzer-cplusplus.NewDeleteLeaks): the application owns it

void WholeFrames::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                                const QWidget* widget) const {
    if (element != PE_Frame || isWhole(painter->deviceTransform().m11())) {
        QProxyStyle::drawPrimitive(element, option, painter, widget);
        return;
    }
    // In the screen's own pixels, one wide.
    const QTransform toScreen = painter->deviceTransform();
    const QRect frame = toScreen.mapRect(QRectF(option->rect)).toRect();
    painter->save();
    painter->setWorldTransform(toScreen.inverted() * painter->worldTransform());
    const QColor line = lineColour(option->palette);
    painter->fillRect(QRect(frame.topLeft(), frame.topRight()), line);
    painter->fillRect(QRect(frame.bottomLeft(), frame.bottomRight()), line);
    painter->fillRect(QRect(frame.topLeft(), frame.bottomLeft()), line);
    painter->fillRect(QRect(frame.topRight(), frame.bottomRight()), line);
    painter->restore();
}

} // namespace brovin::desktop
