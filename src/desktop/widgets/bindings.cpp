#include "desktop/widgets/bindings.h"

#include "desktop/widgets/text.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDateTimeEdit>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QSlider>
#include <QTimeZone>

#include <chrono>
#include <utility>

namespace brovin::desktop {
namespace {

/// Shows the control's state now and after each change, without the showing coming back as a user's act.
template <class Widget, class Show>
void follow(Widget* widget, ui::Control& control, Show show) {
    bindCommon(widget, control);
    auto update = [shown = QPointer<Widget>(widget), show]() mutable {
        if (!shown)
            return; // the form outlives its windows
        const QSignalBlocker quiet(shown);
        show(shown.data());
    };
    update();
    control.observe(std::move(update));
}

/// Fires the control's event whenever the widget gets the focus.
void tellFocus(QWidget* widget, ui::Event<>& gotFocus) {
    QObject::connect(qApp, &QApplication::focusChanged, widget, [widget, &gotFocus](QWidget*, QWidget* now) {
        if (now == widget)
            gotFocus();
    });
}

/// Shows the entries of a list anew where they are others than the last time.
template <class Widget>
auto showEntries(const ui::ListControl& control) {
    return [&control, revision = control.revision() - 1](Widget* shown) mutable {
        if (std::exchange(revision, control.revision()) == control.revision())
            return;
        shown->clear();
        for (const auto& item : control.items())
            shown->addItem(qt(item.text));
    };
}

QDateTime dateTimeOf(platform::DateTime when) {
    return QDateTime::fromSecsSinceEpoch(when.time_since_epoch().count(), QTimeZone::utc());
}

platform::DateTime dateTimeOf(const QDateTime& shown) {
    QDateTime wall(shown.date(), shown.time(), QTimeZone::utc());
    return platform::DateTime(std::chrono::seconds(wall.toSecsSinceEpoch()));
}

} // namespace

void bindCommon(QWidget* widget, ui::Control& control) {
    widget->setObjectName(qt(control.name()));
    const auto update = [shown = QPointer<QWidget>(widget), &control] {
        if (!shown)
            return;
        shown->setToolTip(plainToolTip(control.toolTip()));
        shown->setAccessibleName(withoutMnemonic(qt(control.caption())));
        // What else there is to know. On this system the toolkit names a combo box by its choice, so that its
        // caption is told here; without a description a screen reader would read the tool tip's mark-up.
        shown->setAccessibleDescription(qtLines(control.toolTip()));
        shown->setEnabled(control.enabled());
        if (shown->isHidden() == control.visible())
            shown->setVisible(control.visible());
        if (control.hand())
            shown->setCursor(Qt::PointingHandCursor);
    };
    update();
    control.observe(update);
}

void bind(QLabel* widget, ui::Label& control) {
    widget->setTextFormat(Qt::PlainText);
    follow(widget, control, [&control](QLabel* shown) { shown->setText(qtLines(control.caption())); });
}

void bind(QPushButton* widget, ui::Button& control) {
    follow(widget, control, [&control](QPushButton* shown) {
        shown->setText(qt(control.caption()));
        shown->setDefault(control.isDefault());
    });
    QObject::connect(widget, &QPushButton::clicked, [&control] { control.click(); });
}

void bind(QCheckBox* widget, ui::CheckBox& control) {
    follow(widget, control, [&control](QCheckBox* shown) {
        shown->setText(qt(control.caption()));
        shown->setChecked(control.checked());
    });
    QObject::connect(widget, &QCheckBox::toggled,
                     [&control](bool on) { control.setValue(on ? ui::CheckBox::kOn : ui::CheckBox::kOff); });
}

void bind(QRadioButton* widget, ui::OptionButton& control) {
    widget->setAutoExclusive(false); // the program clears the other one
    follow(widget, control, [&control](QRadioButton* shown) {
        shown->setText(qt(control.caption()));
        shown->setChecked(control.value());
    });
    QObject::connect(widget, &QRadioButton::clicked, [widget, &control] {
        control.setValue(true);
        widget->setChecked(true); // a click on the chosen one does not clear it
    });
}

void bind(QLineEdit* widget, ui::TextBox& control) {
    follow(widget, control, [&control](QLineEdit* shown) {
        if (shown->text() != qt(control.text()))
            shown->setText(qt(control.text()));
    });
    QObject::connect(widget, &QLineEdit::textEdited,
                     [widget, &control, edits = 0U](const QString& text) mutable {
                         const unsigned mine = ++edits;
                         control.setText(text.toStdString());
                         // Where the program has put another text there, typing goes on in its place. Typing
                         // may also have gone on meanwhile, where the program lets events through.
                         if (edits == mine && widget->text() != text)
                             widget->selectAll();
                     });
    tellFocus(widget, control.gotFocus);
    control.place = [shown = QPointer<QLineEdit>(widget)] {
        const QPoint corner = shown ? shown->mapToGlobal(QPoint(0, 0)) : QPoint();
        return ui::Place{corner.x(), corner.y()};
    };
}

void bind(QPlainTextEdit* widget, ui::TextBox& control) {
    widget->setTabChangesFocus(true);
    follow(widget, control, [&control](QPlainTextEdit* shown) {
        if (shown->toPlainText() != qtLines(control.text()))
            shown->setPlainText(qtLines(control.text()));
    });
    QObject::connect(widget, &QPlainTextEdit::textChanged,
                     [widget, &control] { control.setText(widget->toPlainText().toStdString()); });
}

void bind(QListWidget* widget, ui::ListBox& control) {
    widget->setUniformItemSizes(true);
    follow(widget, control, [&control, show = showEntries<QListWidget>(control)](QListWidget* shown) mutable {
        show(shown);
        shown->setCurrentRow(control.selected());
    });
    QObject::connect(widget, &QListWidget::currentRowChanged, [&control](int row) { control.select(row); });
    // A click below the last entry takes the toolkit's highlight away, but chooses nothing else.
    QObject::connect(widget, &QListWidget::itemSelectionChanged, [widget] {
        if (widget->currentItem() != nullptr && widget->selectedItems().isEmpty())
            widget->currentItem()->setSelected(true);
    });
    tellFocus(widget, control.gotFocus);
}

void bind(QComboBox* widget, ui::ComboBox& control) {
    follow(widget, control, [&control, show = showEntries<QComboBox>(control)](QComboBox* shown) mutable {
        show(shown);
        shown->setCurrentIndex(control.selected());
    });
    QObject::connect(widget, &QComboBox::activated, [&control](int index) { control.select(index); });
}

void bind(QDateTimeEdit* widget, ui::Picker& control) {
    widget->setTimeSpec(Qt::UTC); // wall-clock values: no hour is ever missing or doubled
    follow(widget, control, [&control](QDateTimeEdit* shown) {
        const QString format = qt(control.customFormat()).replace(QStringLiteral("tt"), QStringLiteral("AP"));
        if (shown->displayFormat() != format) {
            shown->setDisplayFormat(format);
            // A format without a date narrows the range to the day that is shown, for good; and the width
            // that the widget once asked for is forgotten only with this.
            shown->clearMinimumDateTime();
            shown->clearMaximumDateTime();
            shown->setSpecialValueText({});
        }
        shown->setDateTime(dateTimeOf(control.value()));
    });
    QObject::connect(widget, &QDateTimeEdit::dateTimeChanged,
                     [&control](const QDateTime& shown) { control.setValue(dateTimeOf(shown)); });
}

void bind(QSlider* widget, ui::Volume& control) {
    constexpr int kPage = 25;
    constexpr int kStep = 5;
    widget->setOrientation(Qt::Horizontal);
    widget->setRange(0, ui::Volume::kLoudest);
    widget->setPageStep(kPage);
    widget->setSingleStep(kStep);
    follow(widget, control, [&control](QSlider* shown) { shown->setValue(control.percent()); });
    QObject::connect(widget, &QSlider::valueChanged,
                     [&control](int percent) { control.setPercent(percent); });
}

void bind(QGroupBox* widget, ui::Panel& control) {
    follow(widget, control, [&control](QGroupBox* shown) { shown->setTitle(qt(control.caption())); });
}

} // namespace brovin::desktop
