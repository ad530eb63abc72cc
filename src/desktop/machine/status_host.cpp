#include "desktop/machine/status_host.h"

#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QDBusPendingCallWatcher>
#include <QDBusVariant>

namespace brovin::desktop {
namespace {

const QString kWatcherService = QStringLiteral("org.kde.StatusNotifierWatcher");
const QString kWatcherPath = QStringLiteral("/StatusNotifierWatcher");

QDBusMessage question() {
    QDBusMessage get = QDBusMessage::createMethodCall(kWatcherService, kWatcherPath,
                                                      QStringLiteral("org.freedesktop.DBus.Properties"),
                                                      QStringLiteral("Get"));
    get << kWatcherService << QStringLiteral("IsStatusNotifierHostRegistered");
    get.setAutoStartService(false);
    return get;
}

bool saysYes(const QDBusMessage& answer) {
    return answer.type() == QDBusMessage::ReplyMessage &&
           answer.arguments().value(0).value<QDBusVariant>().variant().toBool();
}

} // namespace

StatusHost::StatusHost() {
    if (!bus_.isConnected())
        return;
    watcher_.setConnection(bus_);
    watcher_.addWatchedService(kWatcherService);
    connect(&watcher_, &QDBusServiceWatcher::serviceRegistered, this, &StatusHost::look);
    connect(&watcher_, &QDBusServiceWatcher::serviceUnregistered, this, [this] { set(false); });
    for (const char* const signal : {"StatusNotifierHostRegistered", "StatusNotifierHostUnregistered"})
        bus_.connect(kWatcherService, kWatcherPath, kWatcherService, QLatin1String(signal), this,
                     SLOT(look()));
    constexpr int kPatience = 1000; // milliseconds; the toolkit asks the same in the same way
    present_ = saysYes(bus_.call(question(), QDBus::Block, kPatience));
}

void StatusHost::look() {
    auto* const asking = new QDBusPendingCallWatcher(bus_.asyncCall(question()), this);
    connect(asking, &QDBusPendingCallWatcher::finished, this, [this](QDBusPendingCallWatcher* done) {
        done->deleteLater();
        set(saysYes(done->reply()));
    });
}

void StatusHost::set(bool present) {
    if (present_ == present)
        return;
    present_ = present;
    if (changed)
        changed();
}

} // namespace brovin::desktop
