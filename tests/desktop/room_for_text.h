#pragma once

#include "desktop/widgets/tab_button.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QDateTimeEdit>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>

#include <gtest/gtest.h>

#include <string>

namespace brovin::tests {

/// The widgets of a page that can be seen, without those that belong to others.
inline QList<QWidget*> shownOn(const QWidget* page) {
    QList<QWidget*> found;
    for (QWidget* child : page->findChildren<QWidget*>())
        if (child->isVisible() && !child->objectName().isEmpty() && !child->objectName().startsWith("qt_"))
            found += child;
    return found;
}

/// The room that a widget's text takes; empty: it has none, or it scrolls.
inline QSize needOf(const QWidget* widget) {
    if (const auto* label = qobject_cast<const QLabel*>(widget))
        return label->wordWrap() ? QSize(0, label->heightForWidth(label->width())) : label->sizeHint();
    if (const auto* line = qobject_cast<const QLineEdit*>(widget))
        return {line->fontMetrics().horizontalAdvance(line->text()) + 8, line->sizeHint().height()};
    if (const auto* group = qobject_cast<const QGroupBox*>(widget))
        return {group->fontMetrics().horizontalAdvance(group->title()) + 12, 0};
    if (qobject_cast<const QAbstractButton*>(widget) != nullptr)
        return widget->minimumSizeHint().expandedTo(
            {qobject_cast<const desktop::TabButton*>(widget) != nullptr ? 0 : widget->sizeHint().width(), 0});
    if (qobject_cast<const QComboBox*>(widget) != nullptr ||
        qobject_cast<const QDateTimeEdit*>(widget) != nullptr)
        return widget->sizeHint();
    return {};
}

inline void expectRoomFor(const QWidget* widget, const std::string& where) {
    const QSize need = needOf(widget);
    EXPECT_GE(widget->width(), need.width()) << where << widget->objectName().toStdString();
    EXPECT_GE(widget->height(), need.height()) << where << widget->objectName().toStdString();
    EXPECT_TRUE(widget->parentWidget()->rect().contains(widget->geometry()))
        << where << widget->objectName().toStdString() << " sticks out of what it is in";
}

inline void expectNoOverlap(const QList<QWidget*>& widgets, const std::string& where) {
    for (const QWidget* one : widgets)
        for (const QWidget* other : widgets) {
            const bool beside = one < other && one->parentWidget() == other->parentWidget();
            const bool hint = one->objectName().startsWith("picAdd") ||
                              other->objectName().startsWith("picAdd"); // lies on the list
            EXPECT_FALSE(beside && !hint && one->geometry().intersects(other->geometry()))
                << where << one->objectName().toStdString() << " and " << other->objectName().toStdString();
        }
}

} // namespace brovin::tests
