#include "desktop/widgets/picture_label.h"

#include "desktop/widgets/bindings.h"
#include "desktop/widgets/pictures.h"
#include "desktop/widgets/text.h"

#include <QPainter>
#include <QPointer>
#include <QStyleOptionFocusRect>

namespace brovin::desktop {

PictureLabel::PictureLabel(ui::Image& control, int height, QWidget* parent)
    : QAbstractButton(parent), control_(control), height_(height) {
    bindCommon(this, control);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setFocusPolicy(control.hand() ? Qt::StrongFocus : Qt::NoFocus);
    control.observe([shown = QPointer<PictureLabel>(this), &control] {
        if (!shown)
            return;
        shown->setFocusPolicy(control.hand() ? Qt::StrongFocus : Qt::NoFocus);
        shown->updateGeometry();
        shown->update();
    });
    connect(this, &QAbstractButton::clicked, [&control] { control.click(); });
}

QSize PictureLabel::sizeHint() const {
    const QPixmap drawn = picture(qt(control_.picture()), height_, 1);
    return drawn.isNull() ? QSize(height_, height_) : drawn.size();
}

void PictureLabel::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.drawPixmap(0, 0, picture(qt(control_.picture()), height_, devicePixelRatioF()));
    if (!hasFocus())
        return;
    QStyleOptionFocusRect focus;
    focus.initFrom(this);
    style()->drawPrimitive(QStyle::PE_FrameFocusRect, &focus, &painter, this);
}

} // namespace brovin::desktop
