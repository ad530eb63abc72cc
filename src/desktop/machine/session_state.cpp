#include "desktop/machine/session_state.h"

#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>

#include <algorithm>
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

/// Asks without waiting; `got` hears the first value of the answer, if one comes, and who has sent it.
void ask(const QDBusConnection& bus, QDBusMessage question, QObject* asker,
         std::function<void(const QVariant&, const QString& from)> got) {
    if (!bus.isConnected())
        return;
    question.setAutoStartService(false);
    auto* const waiting = new QDBusPendingCallWatcher(bus.asyncCall(question), asker);
    QObject::connect(waiting, &QDBusPendingCallWatcher::finished, asker,
                     [got = std::move(got)](QDBusPendingCallWatcher* done) {
                         done->deleteLater();
                         const QDBusMessage answer = done->reply();
                         if (answer.type() == QDBusMessage::ReplyMessage && !answer.arguments().isEmpty())
                             got(answer.arguments().constFirst(), answer.service());
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
    services_.setConnection(session_);
    services_.setWatchMode(QDBusServiceWatcher::WatchForOwnerChange);
    connect(&services_, &QDBusServiceWatcher::serviceOwnerChanged, this,
            [this](const QString& service, const QString& /*before*/, const QString& owner) {
                ownerChanged(service, owner);
            });
    watchScreenSavers();
    watchLogin();
    watchNotifications();
}

void SessionState::watchScreenSavers() {
    for (const auto& [service, path] : kScreenSavers) {
        const QString name = QLatin1String(service);
        session_.connect({}, QLatin1String(path), name, QStringLiteral("ActiveChanged"), this,
                         SLOT(screenSaverChanged(bool, QDBusMessage)));
        services_.addWatchedService(name);
        askScreenSaver(name, QLatin1String(path));
    }
}

void SessionState::askScreenSaver(const QString& service, const QString& path) {
    ask(session_, QDBusMessage::createMethodCall(service, path, service, QStringLiteral("GetActive")), this,
        [this, service](const QVariant& active, const QString& from) {
            note(lockedBy_, service, active.toBool(), from);
        });
}

/// A program that the session's own service manager has started belongs to no session for the log-on service;
/// "auto" is then the user's session on the screen. Its signals come from its true place.
void SessionState::watchLogin() {
    QDBusConnection bus = QDBusConnection::systemBus();
    const QString automatic = QStringLiteral("/org/freedesktop/login1/session/auto");
    ask(bus, get(kLogin, automatic, kLoginSession, QStringLiteral("Id")), this,
        [this, bus](const QVariant& id, const QString& /*from*/) {
            QDBusMessage where = QDBusMessage::createMethodCall(
                kLogin, QStringLiteral("/org/freedesktop/login1"),
                QStringLiteral("org.freedesktop.login1.Manager"), QStringLiteral("GetSession"));
            where << id.value<QDBusVariant>().variant().toString();
            ask(bus, where, this, [this, bus](const QVariant& at, const QString& /*from*/) mutable {
                const QString path = at.value<QDBusObjectPath>().path();
                bus.connect(kLogin, path, kProperties, kPropertiesChanged, this,
                            SLOT(loginChanged(QString, QVariantMap)));
                ask(bus, get(kLogin, path, kLoginSession, kLockedHint), this,
                    [this](const QVariant& hint, const QString& /*from*/) {
                        note(lockedBy_, kLogin, truth(hint));
                    });
            });
        });
}

void SessionState::watchNotifications() {
    session_.connect({}, kNotificationsPath, kProperties, kPropertiesChanged, this,
                     SLOT(notificationsChanged(QString, QVariantMap, QStringList, QDBusMessage)));
    services_.addWatchedService(kNotifications);
    askNotifications();
}

void SessionState::askNotifications() {
    for (const auto& [interface, name] : kSilences) {
        const QString who = QLatin1String(interface);
        ask(session_, get(kNotifications, kNotificationsPath, who, QLatin1String(name)), this,
            [this, who](const QVariant& silent, const QString& from) {
                note(unwantedBy_, who, truth(silent), from);
            });
    }
}

void SessionState::screenSaverChanged(bool active, const QDBusMessage& message) {
    note(lockedBy_, message.interface(), active, message.service());
}

void SessionState::loginChanged(const QString& interface, const QVariantMap& values) {
    if (interface == kLoginSession && values.contains(kLockedHint))
        note(lockedBy_, kLogin, values.value(kLockedHint).toBool());
}

void SessionState::notificationsChanged(const QString& interface, const QVariantMap& values,
                                        const QStringList& /*renewed*/, const QDBusMessage& message) {
    for (const auto& [publisher, name] : kSilences)
        if (interface == QLatin1String(publisher) && values.contains(QLatin1String(name)))
            note(unwantedBy_, interface, values.value(QLatin1String(name)).toBool(), message.service());
}

void SessionState::note(Sayers& among, const QString& who, bool says, const QString& from) {
    const bool news = says ? among.insert_or_assign(who, from).second : among.erase(who) > 0;
    if (says && !from.isEmpty())
        followUntilItLeaves(from);
    if (news && changed)
        changed();
}

/// One that has left by now has done so unseen, so that is asked for.
void SessionState::followUntilItLeaves(const QString& from) {
    if (services_.watchedServices().contains(from))
        return;
    services_.addWatchedService(from);
    const QString bus = QStringLiteral("org.freedesktop.DBus");
    QDBusMessage question =
        QDBusMessage::createMethodCall(bus, QStringLiteral("/"), bus, QStringLiteral("NameHasOwner"));
    ask(session_, question << from, this, [this, from](const QVariant& there, const QString& /*bus*/) {
        if (!there.toBool())
            forget(from);
    });
}

void SessionState::ownerChanged(const QString& service, const QString& owner) {
    if (owner.isEmpty())
        return forget(service);
    if (service == kNotifications)
        askNotifications();
    for (const auto& [name, path] : kScreenSavers)
        if (service == QLatin1String(name))
            askScreenSaver(service, QLatin1String(path));
}

void SessionState::forget(const QString& from) {
    const auto said = [&from](const auto& sayer) { return sayer.second == from; };
    const bool news = std::erase_if(lockedBy_, said) + std::erase_if(unwantedBy_, said) > 0;
    if (from.startsWith(QLatin1Char(':'))) // a name of its own, which nobody ever has again
        services_.removeWatchedService(from);
    if (news && changed)
        changed();
}

} // namespace brovin::desktop
