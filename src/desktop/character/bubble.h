#pragma once

#include "desktop/character/balloon_placement.h"
#include "desktop/character/overlay_window.h"

#include <QColor>
#include <QStringList>

#include <functional>

namespace brovin::desktop {

struct BubbleColours {
    QColor text;
    QColor background;
    QColor border;
};

/// Between the edge of a bubble and its text, pixels.
inline constexpr int kBubblePadding = 9;

/// The balloon as it is drawn: a rounded bubble with a tip, and plain lines of text in it.
class Bubble final : public OverlayWindow {
public:
    explicit Bubble(const BubbleColours& colours) : colours_(colours) {}

    /// The user has clicked on it or closed it otherwise.
    std::function<void()> closed;

    void takeForm(const BalloonPlace& place);
    void write(const QStringList& lines, Qt::LayoutDirection direction);

protected:
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

    void blendingChanged() override;

private:
    void drawShape();
    void drawOutline(QPainter& painter) const;
    void drawLines(QPainter& painter) const;

    BubbleColours colours_;
    BalloonPlace form_; ///< in the window's own coordinates
    QStringList lines_;
    Qt::LayoutDirection direction_ = Qt::LeftToRight;
};

} // namespace brovin::desktop
