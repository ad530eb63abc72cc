#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusServiceWatcher>
#include <QObject>
#include <QVariantMap>

#include <functional>
#include <map>

namespace brovin::desktop {

/// Whether the session is locked and whether notifications are unwanted, as far as the desktop's services
/// tell it on the session's and the system's bus. Nothing is waited for, and no service is started. What a
/// service has said ends with it.
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
    void notificationsChanged(const QString& interface, const QVariantMap& values, const QStringList& renewed,
                              const QDBusMessage& message);

private:
    /// Who says so, and the name of its own that it has on the session's bus.
    using Sayers = std::map<QString, QString>;

    void watchScreenSavers();
    void watchLogin();
    void watchNotifications();
    void askScreenSaver(const QString& service, const QString& path);
    void askNotifications();
    void ownerChanged(const QString& service, const QString& owner);
    void note(Sayers& among, const QString& who, bool says, const QString& from = {});
    void followUntilItLeaves(const QString& from);
    void forget(const QString& from);

    QDBusConnection session_ = QDBusConnection::sessionBus();
    QDBusServiceWatcher services_;
    Sayers lockedBy_;
    Sayers unwantedBy_;
};

} // namespace brovin::desktop
