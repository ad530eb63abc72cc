#include "desktop/records/score_picture.h"

#include <QImage>
#include <QPainter>
#include <QPalette>

#include <algorithm>
#include <utility>

namespace brovin::desktop {
namespace {

constexpr qreal kMargin = 12;
constexpr qreal kTextGap = 4;

qint64 mostOf(const QVector<ScoreBar>& bars) {
    qint64 most = 1;
    for (const ScoreBar& bar : bars)
        most = std::max(most, bar.items);
    return most;
}

} // namespace

ScorePicture::ScorePicture(QWidget* parent) : QWidget(parent) {
    setMinimumSize(320, 160);
}

void ScorePicture::setBars(QVector<ScoreBar> bars, bool upright) {
    bars_ = std::move(bars);
    upright_ = upright;
    update();
}

QSize ScorePicture::sizeHint() const {
    return {620, 280};
}

QImage ScorePicture::image() const {
    constexpr int kScale = 2;
    const QSize room = size().expandedTo(sizeHint());
    QImage image(room * kScale, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(kScale);
    QPainter painter(&image);
    painter.setFont(font());
    paint(painter, QRectF(QPointF(), room));
    return image;
}

void ScorePicture::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    paint(painter, rect());
}

void ScorePicture::paint(QPainter& painter, const QRectF& room) const {
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(room, palette().color(QPalette::Base));
    const QRectF inner = room.adjusted(kMargin, kMargin, -kMargin, -kMargin);
    if (upright_)
        paintUpright(painter, inner);
    else
        paintLying(painter, inner);
}

/// Labels stand below as many bars as they have room for, the last one always.
void ScorePicture::paintUpright(QPainter& painter, const QRectF& room) const {
    constexpr qreal kLeast = 10;
    constexpr qreal kMost = 56;
    const qreal line = painter.fontMetrics().height();
    const auto fits = static_cast<qsizetype>(room.width() / kLeast);
    const QVector<ScoreBar> shown = bars_.mid(std::max<qsizetype>(0, bars_.size() - fits));
    if (shown.isEmpty())
        return;
    const qreal step = std::min(kMost, room.width() / static_cast<qreal>(shown.size()));
    const qreal floor = room.bottom() - line - kTextGap;
    const qreal height = floor - room.top() - line - kTextGap;
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawLine(QPointF(room.left(), floor), QPointF(room.right(), floor));
    painter.setPen(palette().color(QPalette::Text));
    qreal free = room.right(); // to the left of the labels that are drawn
    for (qsizetype i = shown.size() - 1; i >= 0; --i) {
        const ScoreBar& bar = shown[i];
        const qreal left = room.left() + static_cast<qreal>(i) * step;
        const qreal tall = height * static_cast<qreal>(bar.items) / static_cast<qreal>(mostOf(shown));
        painter.fillRect(QRectF(left + 1, floor - tall, step - 2, tall),
                         palette().color(QPalette::Highlight));
        const QRectF above(left - step, floor - tall - line - 1, 3 * step, line);
        if (bar.items > 0 && painter.fontMetrics().horizontalAdvance(bar.number) <= step + kTextGap)
            painter.drawText(above, Qt::AlignHCenter | Qt::AlignBottom, bar.number);
        const qreal wide = painter.fontMetrics().horizontalAdvance(bar.label) + 1;
        const qreal at = std::max(room.left(), std::min(left + (step - wide) / 2, room.right() - wide));
        if (at + wide > free)
            continue;
        painter.drawText(QRectF(at, floor + kTextGap, wide, line), Qt::AlignHCenter, bar.label);
        free = at - 3 * kTextGap;
    }
}

/// Each with its label before it and its number behind it.
void ScorePicture::paintLying(QPainter& painter, const QRectF& room) const {
    const qreal step = painter.fontMetrics().height() * 1.5;
    const auto fits = static_cast<qsizetype>(room.height() / step);
    const QVector<ScoreBar> shown = bars_.mid(0, std::max<qsizetype>(1, fits));
    qreal labels = 0;
    qreal numbers = 0;
    for (const ScoreBar& bar : shown) {
        labels = std::max<qreal>(labels, painter.fontMetrics().horizontalAdvance(bar.label));
        numbers = std::max<qreal>(numbers, painter.fontMetrics().horizontalAdvance(bar.number));
    }
    labels = std::min(labels, room.width() * 0.4);
    const qreal left = room.left() + labels + 2 * kTextGap;
    const qreal width = room.right() - left - numbers - 2 * kTextGap;
    for (qsizetype i = 0; i < shown.size(); ++i) {
        const ScoreBar& bar = shown[i];
        const qreal top = room.top() + static_cast<qreal>(i) * step;
        const qreal length =
            std::max<qreal>(2, width * static_cast<qreal>(bar.items) / static_cast<qreal>(mostOf(shown)));
        painter.fillRect(QRectF(left, top + 2, length, step - 4), palette().color(QPalette::Highlight));
        painter.setPen(palette().color(QPalette::Text));
        const QString label =
            painter.fontMetrics().elidedText(bar.label, Qt::ElideMiddle, static_cast<int>(labels) + 1);
        painter.drawText(QRectF(room.left(), top, labels + 1, step), Qt::AlignRight | Qt::AlignVCenter,
                         label);
        painter.drawText(QRectF(left + length + kTextGap, top, numbers + kTextGap, step),
                         Qt::AlignLeft | Qt::AlignVCenter, bar.number);
    }
}

} // namespace brovin::desktop
