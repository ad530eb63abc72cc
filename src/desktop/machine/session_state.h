#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>
#include <QVariantMap>

#include <functional>
#include <set>

namespace brovin::desktop {

/// Whether the session is locked and whether notifications are unwanted, as far as the desktop's services
/// tell it on the session's and the system's bus. Nothing is waited for, and no service is started.
class SessionState final : public QObject {
    Q_OBJECT
public:
    SessionState();

    std::function<void()> changed;

    [[nodiscard]] bool locked() const { return !lockedBy_.empty(); }
    [[nodiscard]] bool doNotDisturb() const { return !unwantedBy_.empty(); }

private slots:
    void watch();
    void screenSaverChanged(bool active, const QDBusMessage& message);
    void loginChanged(const QString& interface, const QVariantMap& values);
    void notificationsChanged(const QString& interface, const QVariantMap& values);

private:
    void watchScreenSavers();
    void watchLogin();
    void watchNotifications();
    void note(std::set<QString>& among, const QString& who, bool says);

    QDBusConnection session_ = QDBusConnection::sessionBus();
    std::set<QString> lockedBy_;   ///< who says so
    std::set<QString> unwantedBy_; ///< who says so
};

} // namespace brovin::desktop
