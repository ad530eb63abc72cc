#include "desktop/machine/session_state.h"

#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>

#include <algorithm>
#include <iterator>
#include <utility>

namespace brovin::desktop {
namespace {

const QString kProperties = QStringLiteral("org.freedesktop.DBus.Properties");
const QString kPropertiesChanged = QStringLiteral("PropertiesChanged");
const QString kLogin = QStringLiteral("org.freedesktop.login1");
const QString kLoginSession = QStringLiteral("org.freedesktop.login1.Session");
const QString kLockedHint = QStringLiteral("LockedHint");
const QString kNotifications = QStringLiteral("org.freedesktop.Notifications");
const QString kNotificationsPath = QStringLiteral("/org/freedesktop/Notifications");

/// Those who hide the screen, each under a name of its own.
constexpr std::pair<const char*, const char*> kScreenSavers[] = {
    {"org.freedesktop.ScreenSaver", "/org/freedesktop/ScreenSaver"},
    {"org.gnome.ScreenSaver", "/org/gnome/ScreenSaver"},
    {"org.cinnamon.ScreenSaver", "/org/cinnamon/ScreenSaver"},
    {"org.mate.ScreenSaver", "/org/mate/ScreenSaver"},
    {"org.xfce.ScreenSaver", "/org/xfce/ScreenSaver"},
};

/// Where services of notifications publish that they are to be silent.
constexpr std::pair<const char*, const char*> kSilences[] = {
    {"org.freedesktop.Notifications", "Inhibited"},
    {"org.dunstproject.cmd0", "paused"},
};

/// Asks without waiting; `got` hears the first value of the answer, if one comes.
void ask(const QDBusConnection& bus, QDBusMessage question, QObject* asker,
         std::function<void(const QVariant&)> got) {
    if (!bus.isConnected())
        return;
    question.setAutoStartService(false);
    auto* const waiting = new QDBusPendingCallWatcher(bus.asyncCall(question), asker);
    QObject::connect(waiting, &QDBusPendingCallWatcher::finished, asker,
                     [got = std::move(got)](QDBusPendingCallWatcher* done) {
                         done->deleteLater();
                         const QDBusMessage answer = done->reply();
                         if (answer.type() == QDBusMessage::ReplyMessage && !answer.arguments().isEmpty())
                             got(answer.arguments().constFirst());
                     });
}

QDBusMessage get(const QString& service, const QString& path, const QString& interface, const QString& name) {
    QDBusMessage call = QDBusMessage::createMethodCall(service, path, kProperties, QStringLiteral("Get"));
    call << interface << name;
    return call;
}

bool truth(const QVariant& value) {
    return value.value<QDBusVariant>().variant().toBool();
}

} // namespace

SessionState::SessionState() {
    // All of it answers later anyway, and the icon is not to wait for the connections.
    QMetaObject::invokeMethod(this, "watch", Qt::QueuedConnection);
}

void SessionState::watch() {
    watchScreenSavers();
    watchLogin();
    watchNotifications();
}

void SessionState::watchScreenSavers() {
    for (const auto& [service, path] : kScreenSavers) {
        const QString name = QLatin1String(service);
        session_.connect({}, QLatin1String(path), name, QStringLiteral("ActiveChanged"), this,
                         SLOT(screenSaverChanged(bool, QDBusMessage)));
        ask(session_,
            QDBusMessage::createMethodCall(name, QLatin1String(path), name, QStringLiteral("GetActive")),
            this, [this, name](const QVariant& active) { note(lockedBy_, name, active.toBool()); });
    }
}

/// A program that the session's own service manager has started belongs to no session for the log-on service;
/// "auto" is then the user's session on the screen. Its signals come from its true place.
void SessionState::watchLogin() {
    QDBusConnection bus = QDBusConnection::systemBus();
    const QString automatic = QStringLiteral("/org/freedesktop/login1/session/auto");
    ask(bus, get(kLogin, automatic, kLoginSession, QStringLiteral("Id")), this,
        [this, bus](const QVariant& id) {
            QDBusMessage where = QDBusMessage::createMethodCall(
                kLogin, QStringLiteral("/org/freedesktop/login1"),
                QStringLiteral("org.freedesktop.login1.Manager"), QStringLiteral("GetSession"));
            where << id.value<QDBusVariant>().variant().toString();
            ask(bus, where, this, [this, bus](const QVariant& at) mutable {
                const QString path = at.value<QDBusObjectPath>().path();
                bus.connect(kLogin, path, kProperties, kPropertiesChanged, this,
                            SLOT(loginChanged(QString, QVariantMap)));
                ask(bus, get(kLogin, path, kLoginSession, kLockedHint), this,
                    [this](const QVariant& hint) { note(lockedBy_, kLogin, truth(hint)); });
            });
        });
}

void SessionState::watchNotifications() {
    session_.connect({}, kNotificationsPath, kProperties, kPropertiesChanged, this,
                     SLOT(notificationsChanged(QString, QVariantMap)));
    for (const auto& [interface, name] : kSilences) {
        const QString who = QLatin1String(interface);
        ask(session_, get(kNotifications, kNotificationsPath, who, QLatin1String(name)), this,
            [this, who](const QVariant& silent) { note(unwantedBy_, who, truth(silent)); });
    }
}

void SessionState::screenSaverChanged(bool active, const QDBusMessage& message) {
    note(lockedBy_, message.interface(), active);
}

void SessionState::loginChanged(const QString& interface, const QVariantMap& values) {
    if (interface == kLoginSession && values.contains(kLockedHint))
        note(lockedBy_, kLogin, values.value(kLockedHint).toBool());
}

void SessionState::notificationsChanged(const QString& interface, const QVariantMap& values) {
    for (const auto& [publisher, name] : kSilences)
        if (interface == QLatin1String(publisher) && values.contains(QLatin1String(name)))
            note(unwantedBy_, interface, values.value(QLatin1String(name)).toBool());
}

void SessionState::note(std::set<QString>& among, const QString& who, bool says) {
    const bool news = says ? among.insert(who).second : among.erase(who) > 0;
    if (news && changed)
        changed();
}

} // namespace brovin::desktop
