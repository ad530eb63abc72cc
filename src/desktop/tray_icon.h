#pragma once

#include "platform/notification_area.h"
#include "ui/frm_options.h"
#include "ui/main_window.h"

#include <QMenu>
#include <QSystemTrayIcon>

#include <functional>

namespace brovin::desktop {

/// The program's icon in the notification area and the menu that it opens.
class TrayIcon final : public QObject, public platform::NotificationArea {
    Q_OBJECT
public:
    TrayIcon();

    /// Ties icon and menu to the program. While `busy` says so, clicks are lost: a question is open.
    void tie(ui::FrmOptions& form, ui::MainWindow& window, std::function<bool()> busy);

    [[nodiscard]] bool available() const override { return QSystemTrayIcon::isSystemTrayAvailable(); }
    bool add(const std::string& tip) override;
    void setTip(const std::string& tip) override;
    void remove() override;

    /// Where the icon is on the screen; empty: nowhere.
    [[nodiscard]] QRect place() const { return icon_.geometry(); }

private:
    void addEntry(ui::Button& control);
    void activated(QSystemTrayIcon::ActivationReason reason);

    QMenu menu_;
    QSystemTrayIcon icon_;
    ui::MainWindow* window_ = nullptr;
    std::function<bool()> busy_;
};

} // namespace brovin::desktop
