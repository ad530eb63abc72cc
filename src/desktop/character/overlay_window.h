#pragma once

#include "desktop/character/compositor.h"
#include "desktop/character/cut_out.h"

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

    /// The picture from here on: what `paintEvent` paints, and its shape in pixels of the screen, where both
    /// change at once. Where the desktop blends, the shape is for clicks alone; where it does not, it is what
    /// keeps the desktop in sight.
    void present(const QRegion& shape);

    [[nodiscard]] const QRegion& shape() const { return shape_; }
    /// Whether half transparent pixels come out right.
    [[nodiscard]] bool blended() const { return compositor_.blends(); }
    /// The window's size in pixels of the screen.
    [[nodiscard]] QSize pixels() const { return (QSizeF(size()) * devicePixelRatioF()).toSize(); }

protected:
    /// The desktop blends from here on, or does not any more: the picture is to be presented again.
    virtual void blendingChanged();

private:
    QPoint place_;
    QRegion shape_;
    CutOut cutOut_{*this};
    Compositor compositor_{[this] { blendingChanged(); }};
};

} // namespace brovin::desktop
