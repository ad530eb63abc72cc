#include "desktop/character/overlay_window.h"

#include "desktop/x11/x11_desktop.h"

#include <QGuiApplication>
#include <QScreen>

#include <utility>

namespace brovin::desktop {

namespace {

/// The X server of a Wayland desktop names its screens so.
bool behindWayland() {
    const QScreen* const screen = QGuiApplication::primaryScreen();
    return screen != nullptr && screen->name().startsWith(QLatin1String("XWAYLAND"));
}

/// Wayland's desktops place the windows that they manage themselves, and say that they are where they asked
/// to be. What they do not manage stands where it wants to, above the others, and never has the focus.
Qt::WindowFlags unmanagedWhereMovesAreRefused() {
    return behindWayland() ? Qt::BypassWindowManagerHint : Qt::WindowFlags();
}

} // namespace

OverlayWindow::OverlayWindow()
    : QWidget(nullptr, unmanagedWhereMovesAreRefused() | Qt::Tool | Qt::FramelessWindowHint |
                           Qt::WindowStaysOnTopHint | Qt::WindowDoesNotAcceptFocus |
                           Qt::NoDropShadowWindowHint) {
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
    create();
    declineFocus(*windowHandle());
    show();
    // Said before it is shown, a window manager that is still busy with the window's last disappearance would
    // take it for old and forget it.
    askForWindowStates(*windowHandle(),
                       {"_NET_WM_STATE_ABOVE", "_NET_WM_STATE_SKIP_TASKBAR", "_NET_WM_STATE_SKIP_PAGER"});
    move(place_);
    raise();
}

void OverlayWindow::present(const QRegion& shape) {
    if (std::exchange(shape_, shape) == shape)
        repaint();
    else
        cutOut_.apply(shape_, blended() ? Cut::Clicks : Cut::Sight, [this] { repaint(); });
}

void OverlayWindow::blendingChanged() {
    cutOut_.makeWhole();
    cutOut_.apply(shape_, blended() ? Cut::Clicks : Cut::Sight, [this] { repaint(); });
}

} // namespace brovin::desktop
