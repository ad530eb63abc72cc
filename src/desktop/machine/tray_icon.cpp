#include "desktop/machine/tray_icon.h"

#include "desktop/widgets/pictures.h"
#include "desktop/widgets/text.h"

#include <QAction>
#include <QApplication>
#include <QPointer>
#include <QWidget>
#include <QWindow>

namespace brovin::desktop {

TrayIcon::TrayIcon() {
    host_.changed = [this] {
        makeIcon();
        joinLate();
    };
    makeIcon();
}

/// With its first icon the toolkit asks the panel, too, and is more patient with one that hangs: the whole
/// program would stand for 25 seconds.
void TrayIcon::makeIcon() {
    if (icon_ || !host_.answers())
        return;
    toolkitUsesBus_ = host_.present();
    icon_.emplace(programIcon());
    icon_->setContextMenu(&menu_);
    connect(&*icon_, &QSystemTrayIcon::activated, this, &TrayIcon::activated);
    if (toolkitUsesBus_) {
        panel_.emplace();
        panel_->changed = [this] {
            embedded_.reset();
            // The toolkit is to hear of it first.
            QMetaObject::invokeMethod(this, "joinLate", Qt::QueuedConnection);
        };
    }
    if (wanted_)
        showIcon();
}

void TrayIcon::tie(ui::FrmOptions& form, window::MainWindow& window, Reception reception) {
    window_ = &window;
    reception_ = std::move(reception);
    addEntry(form.mHelp);
    addEntry(form.mPopRestore);
    addEntry(form.mPopExit);
    menu_.addSeparator();
    for (ui::CheckBox* entry : {&form.mQuiet, &form.mQuietHour, &form.mQuietTomorrow})
        addEntry(*entry);
    menu_.setDefaultAction(menu_.actions().at(1));
}

QAction* TrayIcon::addEntry(ui::Control& control) {
    QAction* action = menu_.addAction(QString());
    action->setObjectName(qt(control.name()));
    const auto show = [shown = QPointer<QAction>(action), &control] {
        if (shown)
            shown->setText(qt(control.caption()));
    };
    show();
    control.observe(show);
    return action;
}

void TrayIcon::addEntry(ui::Button& control) {
    connect(addEntry(static_cast<ui::Control&>(control)), &QAction::triggered, this, [this, &control] {
        if (admitted())
            control.click();
    });
}

void TrayIcon::addEntry(ui::CheckBox& control) {
    QAction* const action = addEntry(static_cast<ui::Control&>(control));
    action->setCheckable(true);
    const auto show = [shown = QPointer<QAction>(action), &control] {
        if (shown)
            shown->setChecked(control.checked());
    };
    show();
    control.observe(show);
    connect(action, &QAction::triggered, this, [this, &control, show](bool on) {
        if (admitted())
            control.setValue(on ? ui::CheckBox::kOn : ui::CheckBox::kOff);
        else
            show(); // the toolkit has ticked it already
    });
}

bool TrayIcon::add(const std::string& tip) {
    wanted_ = true;
    tip_ = qt(tip);
    if (icon_)
        showIcon();
    return available();
}

void TrayIcon::showIcon() {
    icon_->setToolTip(tip_);
    icon_->show(); // where an area appears later, the icon joins it by itself
    keepInReach();
    joinLate();
}

/// An item goes with its panel, and joins the next one as another.
void TrayIcon::joinLate() {
    if (toolkitUsesBus_) {
        embedLate();
        return;
    }
    if (!icon_ || !wanted_ || !host_.present() || QSystemTrayIcon::isSystemTrayAvailable()) {
        late_.reset();
        return;
    }
    if (late_)
        return;
    late_ = std::make_unique<StatusItem>(icon_->icon(), tip_, menu_);
    late_->activated = [this] { activated(QSystemTrayIcon::Trigger); };
    late_->menuWanted = [this](QPoint at) {
        menu_.popup(at);
        activated(QSystemTrayIcon::Context);
    };
}

/// A panel that goes takes its icons along, and they are made anew for the next one. The toolkit has to be
/// asked for it, else it would embed nothing.
void TrayIcon::embedLate() {
    if (!wanted_ || host_.present() || !panel_->present() || !QSystemTrayIcon::isSystemTrayAvailable()) {
        embedded_.reset();
        return;
    }
    if (embedded_)
        return;
    embedded_ = std::make_unique<EmbeddedIcon>(icon_->icon(), tip_);
    embedded_->activated = [this] { activated(QSystemTrayIcon::Trigger); };
    embedded_->menuWanted = [this](QPoint at) {
        menu_.popup(at);
        activated(QSystemTrayIcon::Context);
    };
    keepInReach();
}

void TrayIcon::setTip(const std::string& tip) {
    tip_ = qt(tip);
    if (icon_)
        icon_->setToolTip(tip_);
    if (embedded_)
        embedded_->setToolTip(tip_);
    if (late_)
        late_->setTip(tip_);
}

void TrayIcon::remove() {
    wanted_ = false;
    if (icon_)
        icon_->hide();
    joinLate();
}

/// A box that is open keeps clicks from all usual windows, and those of embedded icons are no
/// exception. They are made one, and the clicks are taken where they arrive.
void TrayIcon::keepInReach() {
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        QWindow* const window = widget->windowHandle();
        if (window == nullptr || widget->objectName() != kNameOfIcons)
            continue;
        window->setFlags(window->flags() | Qt::ToolTip);
        window->installEventFilter(this);
        widget->installEventFilter(this); // shown again in another panel, it has another window
    }
}

bool TrayIcon::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Show && watched->isWidgetType())
        keepInReach();
    const bool press =
        event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonDblClick;
    return press && watched->isWindowType() && !admitted();
}

bool TrayIcon::admitted() const {
    reception_.userActs();
    if (!reception_.busy())
        return true;
    reception_.bringBack();
    return false;
}

void TrayIcon::activated(QSystemTrayIcon::ActivationReason reason) {
    if (window_ == nullptr || (reason == QSystemTrayIcon::Context && reception_.busy()) || !admitted())
        return;
    if (reason == QSystemTrayIcon::Trigger)
        window_->trayMouse(window::TrayMouse::LeftUp);
    else if (reason == QSystemTrayIcon::DoubleClick)
        window_->trayMouse(window::TrayMouse::LeftDoubleClick);
    else if (reason == QSystemTrayIcon::Context)
        window_->trayMouse(window::TrayMouse::RightUp); // the menu itself is opened by the toolkit
}

} // namespace brovin::desktop
