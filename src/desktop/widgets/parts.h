#pragma once

#include "desktop/widgets/bindings.h"

#include <QBoxLayout>
#include <QLabel>

namespace brovin::desktop {

/// A widget that is bound to its control, for a layout to take.
template <class Widget, class ControlType>
Widget* bound(ControlType& control, QWidget* page) {
    auto* widget = new Widget(page);
    bind(widget, control);
    return widget;
}

/// A label that stands before another widget and leads its mnemonic there.
inline QLabel* labelFor(QWidget* buddy, ui::Label& control, QWidget* page) {
    auto* label = bound<QLabel>(control, page);
    label->setBuddy(buddy);
    return label;
}

/// The same above its widget, where a long one may take several lines.
inline QLabel* labelAbove(QWidget* buddy, ui::Label& control, QWidget* page) {
    QLabel* label = labelFor(buddy, control, page);
    label->setWordWrap(true);
    return label;
}

/// Widgets side by side, with the room that is left behind them.
inline QHBoxLayout* row(std::initializer_list<QWidget*> widgets) {
    auto* layout = new QHBoxLayout;
    for (QWidget* widget : widgets)
        layout->addWidget(widget);
    layout->addStretch();
    return layout;
}

} // namespace brovin::desktop
