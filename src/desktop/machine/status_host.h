#pragma once

#include <QDBusConnection>
#include <QDBusServiceWatcher>
#include <QObject>

#include <functional>

namespace brovin::desktop {

/// Whether a panel shows status items at this moment: org.kde.StatusNotifierWatcher on the session's bus, and
/// its IsStatusNotifierHostRegistered.
class StatusHost final : public QObject {
    Q_OBJECT
public:
    /// Looks at once.
    StatusHost();

    /// It has come or gone. A watcher that is started anew goes and comes.
    std::function<void()> changed;

    [[nodiscard]] bool present() const { return present_; }

private slots:
    void look();

private:
    void set(bool present);

    QDBusConnection bus_ = QDBusConnection::sessionBus();
    QDBusServiceWatcher watcher_;
    bool present_ = false;
};

} // namespace brovin::desktop
