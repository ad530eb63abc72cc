#include "desktop/machine/status_host.h"

#include <QDBusError>
#include <QDBusPendingCall>
#include <QDBusPendingCallWatcher>
#include <QDBusVariant>
#include <QTimer>

#include <chrono>

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

bool isMissing(const QDBusMessage& answer) {
    const QDBusError::ErrorType error = QDBusError(answer).type();
    return error == QDBusError::NoReply || error == QDBusError::Timeout || error == QDBusError::TimedOut;
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
    constexpr int kPatience = 1000; // milliseconds
    const QDBusMessage answer = bus_.call(question(), QDBus::Block, kPatience);
    present_ = saysYes(answer);
    answers_ = !isMissing(answer);
    if (!answers_)
        look();
}

void StatusHost::look() {
    auto* const asking = new QDBusPendingCallWatcher(bus_.asyncCall(question()), this);
    connect(asking, &QDBusPendingCallWatcher::finished, this, [this](QDBusPendingCallWatcher* done) {
        done->deleteLater();
        hear(done->reply());
    });
}

void StatusHost::hear(const QDBusMessage& answer) {
    constexpr std::chrono::seconds kPause{1}; // a watcher may also say at once that there is no reply
    if (isMissing(answer)) // it hangs; where it has gone meanwhile, that is the next answer
        QTimer::singleShot(kPause, this, &StatusHost::look);
    else
        set(saysYes(answer));
}

void StatusHost::set(bool present) {
    if (present_ == present && answers_)
        return;
    present_ = present;
    answers_ = true;
    if (changed)
        changed();
}

} // namespace brovin::desktop
