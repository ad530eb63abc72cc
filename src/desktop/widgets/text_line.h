#pragma once

#include "desktop/widgets/text.h"
#include "ui/window.h"

#include <QLabel>
#include <QPointer>

namespace brovin::desktop {

/// A line for the text that `text` makes, made again at each change of the control.
template <class Text>
QLabel* textLine(ui::Control& control, QWidget* page, Text text) {
    auto* line = new QLabel(page);
    line->setTextFormat(Qt::PlainText);
    line->setWordWrap(true);
    const auto show = [shown = QPointer<QLabel>(line), text] {
        if (shown)
            shown->setText(text());
    };
    show();
    control.observe(show);
    return line;
}

/// The statistics, which stand in the window's title too, where they may be cut.
inline QLabel* statisticsLine(ui::Window& window, QWidget* page) {
    QLabel* line = textLine(window, page, [&window] { return qt(window.caption()); });
    line->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return line;
}

} // namespace brovin::desktop
