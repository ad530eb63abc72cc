#include "desktop/widgets/tab_button.h"

#include "desktop/widgets/bindings.h"
#include "desktop/widgets/pictures.h"
#include "desktop/widgets/text.h"

#include <QPainter>
#include <QPointer>
#include <QStyleOptionFocusRect>

#include <algorithm>

namespace brovin::desktop {
namespace {

constexpr int kPicture = 40; ///< height and width of the picture
constexpr int kMargin = 7;   ///< room for the frame at all edges
// Where the screen is too low for eight of these:
constexpr int kSmallPicture = 22;
constexpr int kSmallMargin = 3;

} // namespace

TabButton::TabButton(ui::FrmOptions& form, std::size_t tab, QWidget* parent)
    : QAbstractButton(parent), form_(form), image_(form.imgTabs[tab]), label_(form.lblTabs[tab]) {
    bindCommon(this, image_);
    setFocusPolicy(Qt::StrongFocus);
    setCheckable(true);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
    const auto follow = [shown = QPointer<TabButton>(this)] {
        if (!shown)
            return;
        shown->setChecked(shown->label_.highlighted());
        shown->setText(qt(shown->label_.caption()));
        shown->updateGeometry();
        shown->update();
    };
    follow();
    image_.observe(follow);
    label_.observe(follow);
    form.tabFrame.observe([shown = QPointer<TabButton>(this)] {
        if (shown && shown->label_.highlighted())
            shown->update();
    });
    connect(this, &QAbstractButton::clicked, [this] { image_.click(); });
}

QFont TabButton::captionFont() const {
    QFont bold = font();
    bold.setBold(label_.bold());
    return bold;
}

QSize TabButton::sizeHint() const {
    QFont widest = font();
    widest.setBold(true); // so that the column keeps its width whichever tab is chosen
    const QFontMetrics metrics(widest);
    return {std::max(kPicture, metrics.horizontalAdvance(text())) + 2 * kMargin + 6,
            kPicture + metrics.height() + 2 * kMargin};
}

QSize TabButton::minimumSizeHint() const {
    const QSize full = sizeHint();
    return {full.width(), full.height() - (kPicture - kSmallPicture) - 2 * (kMargin - kSmallMargin)};
}

/// Dashes that wander along the edge, one dash in kSteps steps.
void TabButton::drawFrame(QPainter& painter) const {
    constexpr qreal kDash = 4;
    QPen pen(Qt::white, 1.5);
    pen.setDashPattern({kDash, kDash});
    pen.setDashOffset(2 * kDash * form_.tabFrame.step() / ui::MovingFrame::kSteps);
    painter.setPen(pen);
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(QRectF(rect()).adjusted(2.5, 2.5, -2.5, -2.5), 5, 5);
}

void TabButton::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (label_.highlighted()) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(palette().highlight());
        painter.drawRoundedRect(rect().adjusted(1, 1, -1, -1), 6, 6);
        drawFrame(painter);
    }
    painter.setFont(captionFont());
    const int room = height() - painter.fontMetrics().height();
    const int margin = std::clamp((room - kPicture) / 2, kSmallMargin, kMargin);
    const int side = std::clamp(room - 2 * margin, kSmallPicture, kPicture);
    const QPixmap drawn = picture(qt(image_.picture()), side, devicePixelRatioF());
    painter.drawPixmap((width() - side) / 2, margin, drawn);
    painter.setPen(palette().color(label_.highlighted() ? QPalette::HighlightedText : QPalette::WindowText));
    painter.drawText(rect().adjusted(0, margin + side - 1, 0, -margin), Qt::AlignHCenter | Qt::AlignVCenter,
                     text());
    if (!hasFocus())
        return;
    QStyleOptionFocusRect focus;
    focus.initFrom(this);
    focus.rect = rect().adjusted(2, 2, -2, -2);
    style()->drawPrimitive(QStyle::PE_FrameFocusRect, &focus, &painter, this);
}

void TabButton::enterEvent(QEnterEvent* /*event*/) {
    image_.mouseMove();
}

void TabButton::leaveEvent(QEvent* /*event*/) {
    form_.window.mouseMove();
}

} // namespace brovin::desktop
