#include "desktop/window/accessibility.h"

#include "desktop/widgets/link_label.h"
#include "desktop/widgets/picture_label.h"
#include "desktop/widgets/tab_button.h"
#include "desktop/window/options_window.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QRadioButton>

#include <functional>
#include <utility>

namespace brovin::desktop {
namespace {

/// Something that a screen reader's user can press.
class Pressable : public QAccessibleWidget {
public:
    Pressable(QWidget* widget, QAccessible::Role role, std::function<void()> press)
        : QAccessibleWidget(widget, role), press_(std::move(press)) {}

    [[nodiscard]] QStringList actionNames() const override {
        return QStringList{pressAction()} + QAccessibleWidget::actionNames();
    }
    void doAction(const QString& action) override {
        if (action == pressAction() && widget()->isEnabled())
            press_();
        else
            QAccessibleWidget::doAction(action);
    }

private:
    std::function<void()> press_;
};

/// One of several of which one is chosen: a tab, or an option button, which the toolkit takes for a check box
/// because the program and not the toolkit clears the others.
class Choice final : public Pressable {
public:
    Choice(QAbstractButton* button, QAccessible::Role role)
        : Pressable(button, role, [button] { button->click(); }), button_(button) {}

    [[nodiscard]] QAccessible::State state() const override {
        QAccessible::State now = Pressable::state();
        now.selectable = now.checkable = true;
        now.selected = now.checked = button_->isChecked();
        return now;
    }

private:
    QAbstractButton* button_;
};

/// A button where a click does something, else a mere picture.
class Picture final : public Pressable {
public:
    explicit Picture(PictureLabel* picture)
        : Pressable(picture, QAccessible::Button, [picture] { picture->click(); }) {}

    [[nodiscard]] QAccessible::Role role() const override {
        return widget()->focusPolicy() == Qt::NoFocus ? QAccessible::Graphic : QAccessible::Button;
    }
};

QAccessibleInterface* describe(const QString& /*className*/, QObject* object) {
    if (auto* tab = qobject_cast<TabButton*>(object))
        return new Choice(tab, QAccessible::PageTab);
    if (auto* option = qobject_cast<QRadioButton*>(object))
        return new Choice(option, QAccessible::RadioButton);
    if (auto* picture = qobject_cast<PictureLabel*>(object))
        return new Picture(picture);
    if (auto* link = qobject_cast<LinkLabel*>(object))
        return new Pressable(link, QAccessible::Link, [link] { emit link->linkActivated(QString()); });
    if (auto* window = qobject_cast<OptionsWindow*>(object))
        return new QAccessibleWidget(window, QAccessible::Window);
    return nullptr;
}

} // namespace

void installAccessibility() {
    QAccessible::installFactory(describe); // a second call changes nothing
}

} // namespace brovin::desktop
