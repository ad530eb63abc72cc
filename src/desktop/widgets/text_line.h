#pragma once

#include "desktop/widgets/text.h"
#include "ui/controls.h"

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

/// What a status bar says, in as many lines as it takes; a screen reader is told what it is about.
inline QLabel* statusText(ui::StatusBar& control, QWidget* page) {
    QLabel* line = textLine(control, page, [&control] { return qt(control.panel()); });
    line->setObjectName(qt(control.name()));
    const auto tell = [shown = QPointer<QLabel>(line), &control] {
        if (!shown)
            return;
        shown->setAccessibleName(control.panel().empty() ? qt(control.caption()) : QString());
        shown->setAccessibleDescription(qt(control.caption()));
    };
    tell();
    control.observe(tell);
    return line;
}

/// The statistics, which stand in the window's title too, where they may be cut.
inline QLabel* statisticsLine(ui::StatusBar& score, QWidget* page) {
    QLabel* line = statusText(score, page);
    line->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return line;
}

} // namespace brovin::desktop
