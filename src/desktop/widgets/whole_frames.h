#pragma once

#include <QProxyStyle>

namespace brovin::desktop {

/// The toolkit's style, mended for screens on which a pixel of a layout is no whole number of the screen's
/// pixels: there it loses sides of frames.
class WholeFrames final : public QProxyStyle {
public:
    /// To be called once there is an application. Where the desktop brings a style of its own, or all screens
    /// have whole scales, nothing is changed.
    static void installWhereNeeded();

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
};

} // namespace brovin::desktop
