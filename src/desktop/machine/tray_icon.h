#pragma once

#include "desktop/machine/embedded_icon.h"
#include "desktop/machine/status_host.h"
#include "desktop/machine/status_item.h"
#include "platform/notification_area.h"
#include "ui/frm_options.h"
#include "window/main_window.h"

#include <QMenu>
#include <QSystemTrayIcon>

#include <functional>
#include <memory>
#include <optional>

namespace brovin::desktop {

/// The program's icon in the notification area and the menu that it opens: by the toolkit, which embeds it in
/// panels of the older kind or puts it on the bus, for good. In a panel of the other kind that comes later
/// another icon stands in.
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

    [[nodiscard]] bool available() const override {
        return icon_ && ((toolkitUsesBus_ ? host_.present() : QSystemTrayIcon::isSystemTrayAvailable()) ||
                         late_ || embedded_);
    }
    bool add(const std::string& tip) override;
    void setTip(const std::string& tip) override;
    void remove() override;

    /// Where the icon is on the screen; empty: nowhere.
    [[nodiscard]] QRect place() const {
        if (embedded_)
            return {embedded_->mapToGlobal(QPoint()), embedded_->size()};
        return icon_ ? icon_->geometry() : QRect();
    }

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

    void makeIcon();
    void showIcon();
    Q_INVOKABLE void joinLate();
    void embedLate();

    StatusHost host_;
    QMenu menu_;
    QString tip_;
    bool wanted_ = false;
    std::optional<QSystemTrayIcon> icon_; ///< as soon as the toolkit need not wait for a panel's answer
    /// The toolkit decides once, with its first icon, whether icons live on the bus; where no panel has asked
    /// for them by then, it never puts one there.
    bool toolkitUsesBus_ = false;
    std::optional<EmbeddingPanel> panel_;    ///< where the toolkit would not notice one
    std::unique_ptr<StatusItem> late_;       ///< on the bus, where the toolkit embeds
    std::unique_ptr<EmbeddedIcon> embedded_; ///< where the toolkit is on the bus
    window::MainWindow* window_ = nullptr;
    Reception reception_;
};

} // namespace brovin::desktop
