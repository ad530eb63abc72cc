#include "desktop/tray_icon.h"

#include "desktop/pictures.h"
#include "desktop/text.h"

#include <QAction>
#include <QPointer>

namespace brovin::desktop {

TrayIcon::TrayIcon() : icon_(programIcon()) {
    icon_.setContextMenu(&menu_);
    connect(&icon_, &QSystemTrayIcon::activated, this, &TrayIcon::activated);
}

void TrayIcon::tie(ui::FrmOptions& form, ui::MainWindow& window, std::function<bool()> busy) {
    window_ = &window;
    busy_ = std::move(busy);
    addEntry(form.mHelp);
    addEntry(form.mPopRestore);
    addEntry(form.mPopExit);
    menu_.setDefaultAction(menu_.actions().at(1));
}

void TrayIcon::addEntry(ui::Button& control) {
    QAction* action = menu_.addAction(QString());
    action->setObjectName(qt(control.name()));
    const auto show = [shown = QPointer<QAction>(action), &control] {
        if (shown)
            shown->setText(qt(control.caption()));
    };
    show();
    control.observe(show);
    connect(action, &QAction::triggered, this, [this, &control] {
        if (!busy_())
            control.click();
    });
}

bool TrayIcon::add(const std::string& tip) {
    icon_.setToolTip(qt(tip));
    icon_.show(); // where an area appears later, the icon joins it by itself
    return available();
}

void TrayIcon::setTip(const std::string& tip) {
    icon_.setToolTip(qt(tip));
}

void TrayIcon::remove() {
    icon_.hide();
}

void TrayIcon::activated(QSystemTrayIcon::ActivationReason reason) {
    if (window_ == nullptr || busy_())
        return;
    if (reason == QSystemTrayIcon::Trigger)
        window_->trayMouse(ui::TrayMouse::LeftUp);
    else if (reason == QSystemTrayIcon::DoubleClick)
        window_->trayMouse(ui::TrayMouse::LeftDoubleClick);
    else if (reason == QSystemTrayIcon::Context)
        window_->trayMouse(ui::TrayMouse::RightUp); // the menu itself is opened by the toolkit
}

} // namespace brovin::desktop
