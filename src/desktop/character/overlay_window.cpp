#include "desktop/character/overlay_window.h"

#include "desktop/character/x11_desktop.h"

namespace brovin::desktop {

OverlayWindow::OverlayWindow()
    : QWidget(nullptr, Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint |
                           Qt::WindowDoesNotAcceptFocus | Qt::NoDropShadowWindowHint) {
    setAttribute(Qt::WA_TranslucentBackground);
    setAttribute(Qt::WA_ShowWithoutActivating);
    setFocusPolicy(Qt::NoFocus);
}

void OverlayWindow::putAt(QPoint place) {
    place_ = place;
    if (isVisible())
        move(place_);
}

/// Some window managers choose the first place themselves, so it is asked for once more. The toolkit would
/// leave out a request for the very place that it believes the window to have.
void OverlayWindow::appear() {
    if (isVisible())
        return;
    move(place_ + QPoint(1, 0));
    show();
    keepOnTopAndOffTaskBar(*this);
    move(place_);
    raise();
}

void OverlayWindow::setShape(const QRegion& shape) {
    static const QRegion nowhere(-1, -1, 1, 1); // an empty one would stand for the whole window
    setMask(shape.isEmpty() ? nowhere : shape);
}

} // namespace brovin::desktop
