#include "desktop/character/bubble.h"

#include "desktop/character/opaque_region.h"

#include <QCloseEvent>
#include <QImage>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QWindow>

#include <algorithm>
#include <utility>

namespace brovin::desktop {
namespace {

constexpr qreal kRadius = 10;
constexpr qreal kHalfTipBase = 7;

/// The middle of the tip's base, as near to the tip as the rounded corners allow.
qreal baseMiddle(qreal tip, qreal begin, qreal end) {
    const qreal margin = kRadius + kHalfTipBase;
    return end - begin < 2 * margin ? (begin + end) / 2 : std::clamp(tip, begin + margin, end - margin);
}

QPainterPath tipOf(BalloonSide side, const QRectF& bubble, QPointF tip) {
    const bool upright = side == BalloonSide::Above || side == BalloonSide::Below;
    const QPointF along = upright ? QPointF(kHalfTipBase, 0) : QPointF(0, kHalfTipBase);
    const qreal x = side == BalloonSide::Right ? bubble.left() + 1 : bubble.right() - 1;
    const qreal y = side == BalloonSide::Below ? bubble.top() + 1 : bubble.bottom() - 1;
    const QPointF base = upright ? QPointF(baseMiddle(tip.x(), bubble.left(), bubble.right()), y)
                                 : QPointF(x, baseMiddle(tip.y(), bubble.top(), bubble.bottom()));
    QPainterPath path(base - along);
    path.lineTo(tip);
    path.lineTo(base + along);
    path.closeSubpath();
    return path;
}

/// Half a pixel inside, so that the line of the border lies on whole pixels.
QPainterPath outlineOf(const BalloonPlace& form) {
    const QRectF bubble = QRectF(form.bubble).adjusted(0.5, 0.5, -0.5, -0.5);
    QPainterPath path;
    path.addRoundedRect(bubble, kRadius, kRadius);
    return path.united(tipOf(form.side, bubble, QPointF(form.tip) + QPointF(0.5, 0.5)));
}

} // namespace

void Bubble::takeForm(const BalloonPlace& place) {
    BalloonPlace form = place;
    form.bubble.translate(-place.window.topLeft());
    form.tip -= place.window.topLeft();
    form.window.moveTo(0, 0);
    if (form != form_) {
        form_ = form;
        setFixedSize(form_.window.size());
        drawShape();
    }
    putAt(place.window.topLeft());
}

void Bubble::drawShape() {
    QImage picture(pixels(), QImage::Format_ARGB32_Premultiplied);
    picture.setDevicePixelRatio(devicePixelRatioF());
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    drawOutline(painter);
    painter.end();
    present(opaqueRegion(picture));
}

void Bubble::blendingChanged() {
    drawShape();
    OverlayWindow::blendingChanged();
}

void Bubble::write(const QStringList& lines, Qt::LayoutDirection direction) {
    lines_ = lines;
    direction_ = direction;
    setAccessibleName(lines.join(QLatin1Char(' ')));
    update();
}

void Bubble::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    // Where the outline and the shape differ on an unblended desktop, what shows is border, not black.
    painter.fillRect(rect(), blended() ? QColor(Qt::transparent) : colours_.border);
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    drawOutline(painter);
    drawLines(painter);
}

void Bubble::drawOutline(QPainter& painter) const {
    painter.setRenderHint(QPainter::Antialiasing, blended());
    painter.setPen(colours_.border);
    painter.setBrush(colours_.background);
    painter.drawPath(outlineOf(form_));
}

void Bubble::drawLines(QPainter& painter) const {
    const QRect room =
        form_.bubble.adjusted(kBubblePadding, kBubblePadding, -kBubblePadding, -kBubblePadding);
    // "Left" is where lines of the given direction begin.
    const int direction = direction_ == Qt::RightToLeft ? Qt::TextForceRightToLeft : Qt::TextForceLeftToRight;
    const int flags = direction | Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine | Qt::TextDontClip;
    painter.setPen(colours_.text);
    const int step = fontMetrics().lineSpacing();
    QRect row(room.x(), room.y(), room.width(), step);
    for (const QString& line : lines_) {
        painter.drawText(row, flags, line);
        row.translate(0, step);
    }
}

/// Its shape is in pixels of the screen, which on another one may be larger or smaller.
void Bubble::showEvent(QShowEvent* event) {
    QObject::connect(windowHandle(), &QWindow::screenChanged, this, &Bubble::drawShape, Qt::UniqueConnection);
    QWidget::showEvent(event);
}

void Bubble::mouseReleaseEvent(QMouseEvent* event) {
    if (closed && rect().contains(event->position().toPoint()))
        closed();
}

void Bubble::closeEvent(QCloseEvent* event) {
    if (closed)
        closed();
    QWidget::closeEvent(event);
}

} // namespace brovin::desktop
