#pragma once

#include <QPoint>
#include <QRegion>
#include <QWidget>

namespace brovin::desktop {

/// A window that lies on the desktop like a cut-out: without a frame, of any shape, above all others, not in
/// the task bar, and never with the focus. What is outside of its shape belongs to whatever lies below.
class OverlayWindow : public QWidget {
public:
    OverlayWindow();

    /// Where its upper left corner is. Kept here, because a window manager answers late or, for windows that
    /// come back, with a wrong place.
    [[nodiscard]] QPoint place() const { return place_; }
    void putAt(QPoint place);

    void appear();
    void disappear() { hide(); }

    /// It is blended with what is below it where the desktop can do that, and has a shape as well: without
    /// one, clicks beside the figure would end here, and a desktop that does not blend would show black.
    void setShape(const QRegion& shape);

private:
    QPoint place_;
};

} // namespace brovin::desktop
