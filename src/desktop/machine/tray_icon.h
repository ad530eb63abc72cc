#pragma once

#include "platform/notification_area.h"
#include "ui/frm_options.h"
#include "window/main_window.h"

#include <QMenu>
#include <QSystemTrayIcon>

#include <functional>

namespace brovin::desktop {

/// The program's icon in the notification area and the menu that it opens.
class TrayIcon final : public QObject, public platform::NotificationArea {
    Q_OBJECT
public:
    TrayIcon();

    /// What the user's acts on the icon meet.
    struct Reception {
        std::function<void()> userActs;  ///< told first, of each
        std::function<bool()> busy;      ///< whether a question is open, so that the program cannot listen
        std::function<void()> bringBack; ///< what an act does then: whatever is open comes to the front
    };
    /// Ties icon and menu to the program.
    void tie(ui::FrmOptions& form, window::MainWindow& window, Reception reception);

    [[nodiscard]] bool available() const override { return QSystemTrayIcon::isSystemTrayAvailable(); }
    bool add(const std::string& tip) override;
    void setTip(const std::string& tip) override;
    void remove() override;

    /// Where the icon is on the screen; empty: nowhere.
    [[nodiscard]] QRect place() const { return icon_.geometry(); }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void keepInReach();
    QAction* addEntry(ui::Control& control);
    void addEntry(ui::Button& control);
    void addEntry(ui::CheckBox& control);
    /// Whether an act on the icon reaches the program.
    [[nodiscard]] bool admitted() const;
    void activated(QSystemTrayIcon::ActivationReason reason);

    QMenu menu_;
    QSystemTrayIcon icon_;
    window::MainWindow* window_ = nullptr;
    Reception reception_;
};

} // namespace brovin::desktop
