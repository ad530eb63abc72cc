#include "desktop/widgets/animation_label.h"

#include "desktop/widgets/bindings.h"

#include <QFile>
#include <QPainter>
#include <QPainterPath>
#include <QPointer>

namespace brovin::desktop {

AnimationLabel::AnimationLabel(ui::Animation& control, int height, QWidget* parent)
    : QWidget(parent), control_(control), height_(height) {
    bindCommon(this, control);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    connect(&timer_, &QTimer::timeout, this, [this] {
        frame_ = (frame_ + 1) % static_cast<int>(movie_.frames.size());
        update();
    });
    follow();
    control.observe([shown = QPointer<AnimationLabel>(this)] {
        if (shown)
            shown->follow();
    });
}

void AnimationLabel::follow() {
    if (file_ != control_.file()) {
        file_ = control_.file();
        movie_ = readMovie(QFile::decodeName(QByteArray::fromStdString(file_)));
        frame_ = 0;
        updateGeometry();
        update();
    }
    const bool plays = control_.playing() && control_.visible() && !movie_.frames.isEmpty();
    if (plays && !timer_.isActive())
        timer_.start(movie_.interval);
    else if (!plays)
        timer_.stop();
}

QSize AnimationLabel::sizeHint() const {
    return movie_.frames.isEmpty()
               ? QSize(0, 0)
               : movie_.frames.front().size().scaled(10'000, height_, Qt::KeepAspectRatio);
}

void AnimationLabel::paintEvent(QPaintEvent* /*event*/) {
    if (movie_.frames.isEmpty())
        return;
    constexpr qreal kCorner = 6;
    QPainter painter(this);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    QPainterPath rounded;
    rounded.addRoundedRect(rect(), kCorner, kCorner);
    painter.setClipPath(rounded);
    painter.drawImage(rect(), movie_.frames[frame_]);
}

} // namespace brovin::desktop
