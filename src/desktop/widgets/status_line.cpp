#include "desktop/widgets/status_line.h"

#include "desktop/widgets/bindings.h"
#include "desktop/widgets/text.h"

#include <QPointer>

namespace brovin::desktop {
namespace {
constexpr int kShowEvery = 40; ///< milliseconds
}

StatusLine::StatusLine(ui::StatusBar& control, QWidget* parent) : QLabel(parent), control_(control) {
    bindCommon(this, control);
    setTextFormat(Qt::PlainText);
    pending_.setSingleShot(true);
    pending_.setInterval(kShowEvery);
    connect(&pending_, &QTimer::timeout, this, &StatusLine::showText);
    control.observe([shown = QPointer<StatusLine>(this)] {
        if (shown && !shown->pending_.isActive())
            shown->pending_.start();
    });
    showText();
}

void StatusLine::showText() {
    const QString text = qtLines(control_.panel()).replace(QLatin1Char('\n'), QLatin1Char(' '));
    setText(fontMetrics().elidedText(text, Qt::ElideMiddle, width()));
    setToolTip(plainToolTip(control_.panel()));
    if (!text.isEmpty()) // which may be cut on the screen; without any, the line's own name stays
        setAccessibleName(text);
}

void StatusLine::resizeEvent(QResizeEvent* event) {
    QLabel::resizeEvent(event);
    showText();
}

} // namespace brovin::desktop
