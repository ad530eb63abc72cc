#include "desktop/widgets/frequency_slider.h"

#include "desktop/widgets/bindings.h"

#include <QMouseEvent>
#include <QPainter>
#include <QPointer>
#include <QSignalBlocker>

#include <utility>

namespace brovin::desktop {
namespace {

constexpr int kKnob = 22;  ///< width and height of the knob
constexpr int kTrack = 10; ///< height of the track
constexpr int kPageStep = 20;

/// Mouse buttons by the numbers that the program knows them by.
int numberOf(Qt::MouseButton button) {
    return button == Qt::LeftButton ? 1 : button == Qt::RightButton ? 2 : 4;
}

} // namespace

FrequencySlider::FrequencySlider(ui::Slider& control, ui::Panel& frame, QWidget* parent)
    : QAbstractSlider(parent), control_(control), frame_(frame) {
    setOrientation(Qt::Horizontal);
    setRange(0, ui::Slider::kMaximum);
    setPageStep(kPageStep);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    bindCommon(this, control);
    const auto follow = [shown = QPointer<FrequencySlider>(this)] {
        if (!shown)
            return;
        if (shown->value() != shown->control_.value()) {
            const QSignalBlocker quiet(shown);
            shown->setValue(shown->control_.value());
        }
        shown->update();
    };
    follow();
    control.observe(follow);
    connect(this, &QAbstractSlider::valueChanged, [&control](int value) { control.choose(value); });
}

QSize FrequencySlider::sizeHint() const {
    return {ui::Slider::kMaximum + kKnob + 8, kKnob + 8};
}
QSize FrequencySlider::minimumSizeHint() const {
    return sizeHint();
}

void FrequencySlider::resizeEvent(QResizeEvent* event) {
    QAbstractSlider::resizeEvent(event);
    constexpr int kMargin = kKnob / 2 + 4; // the knob reaches half its width beyond the track's ends
    control_.setTrack(
        {kMargin, (height() - kTrack) / 2.0, static_cast<double>(width() - 2 * kMargin), kTrack, kKnob});
}

QRectF FrequencySlider::trackPlace() const {
    const ui::Slider::Track& track = control_.track();
    return {track.left, track.top, track.width, track.height};
}

QRectF FrequencySlider::knobPlace() const {
    return {control_.parts().knobLeft, (height() - kKnob) / 2.0, kKnob, kKnob};
}

void FrequencySlider::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    drawTrack(painter);
    drawKnob(painter);
}

/// Nearly grey while it cannot be used.
QColor FrequencySlider::fillColour() const {
    const auto [red, green, blue] = control_.parts().fillColour;
    const QColor grey = palette().color(QPalette::Mid);
    return isEnabled() ? QColor(red, green, blue)
                       : QColor((red + 2 * grey.red()) / 3, (green + 2 * grey.green()) / 3,
                                (blue + 2 * grey.blue()) / 3);
}

void FrequencySlider::drawTrack(QPainter& painter) const {
    constexpr qreal kRound = kTrack / 2.0;
    const QRectF track = trackPlace();
    QColor edge = palette().color(QPalette::WindowText);
    edge.setAlphaF(0.45F);
    painter.setPen(QPen(edge, 1));
    painter.setBrush(palette().color(QPalette::Base));
    painter.drawRoundedRect(track, kRound, kRound);

    QRectF fill = track;
    fill.setWidth(control_.parts().fillWidth);
    painter.setPen(Qt::NoPen);
    painter.setBrush(fillColour());
    painter.save();
    painter.setClipRect(fill); // keeps the track's round end where the fill is short
    painter.drawRoundedRect(track.adjusted(1, 1, -1, -1), kRound - 1, kRound - 1);
    painter.restore();
}

/// Round, with the three dots of somebody about to speak.
void FrequencySlider::drawKnob(QPainter& painter) const {
    const QRectF knob = knobPlace();
    const bool marked = hasFocus();
    painter.setPen(
        QPen(palette().color(marked ? QPalette::Highlight : QPalette::WindowText), marked ? 2.5 : 1.2));
    painter.setBrush(palette().color(QPalette::Button));
    painter.drawEllipse(knob.adjusted(1.5, 1.5, -1.5, -1.5));
    painter.setPen(Qt::NoPen);
    painter.setBrush(palette().color(QPalette::ButtonText));
    constexpr qreal kDot = 1.5;
    for (const qreal beside : {-5.0, 0.0, 5.0})
        painter.drawEllipse(knob.center() + QPointF(beside, 0), kDot, kDot);
}

void FrequencySlider::mousePressEvent(QMouseEvent* event) {
    onKnob_ = knobPlace().contains(event->position());
    if (onKnob_)
        control_.mouseDown(numberOf(event->button()), event->position().x());
}

void FrequencySlider::mouseMoveEvent(QMouseEvent* event) {
    if (onKnob_)
        control_.mouseMove(event->position().x());
}

void FrequencySlider::mouseReleaseEvent(QMouseEvent* event) {
    if (std::exchange(onKnob_, false))
        control_.mouseUp();
    else
        frame_.mouseUp(event->position().x(), event->position().y());
}

} // namespace brovin::desktop
