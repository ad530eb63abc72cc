#include "desktop/machine/motion_wish.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>

#include <algorithm>
#include <iterator>

namespace brovin::desktop {
namespace {

const QString kPortal = QStringLiteral("org.freedesktop.portal.Desktop");
const QString kPortalPath = QStringLiteral("/org/freedesktop/portal/desktop");
const QString kPortalSettings = QStringLiteral("org.freedesktop.portal.Settings");

/// Where desktops publish it, and the value by which they ask for stillness.
constexpr struct {
    const char* space;
    const char* key;
    double still;
} kWishes[] = {
    {"org.gnome.desktop.interface", "enable-animations", 0},
    {"org.kde.kdeglobals.KDE", "AnimationDurationFactor", 0},
    {"org.freedesktop.appearance", "reduced-motion", 1},
};
constexpr const char* kShared = "Gtk/EnableAnimations";

/// The older way to ask wraps the value twice. A value of another kind asks for nothing.
bool asksForStillness(QVariant value, double still) {
    while (value.canConvert<QDBusVariant>())
        value = value.value<QDBusVariant>().variant();
    bool isNumber = false;
    const double number = value.toDouble(&isNumber); // true and "0.5" are numbers as well
    return isNumber && number == still;
}

} // namespace

MotionWish::MotionWish() {
    const auto lookAtShared = [this] {
        note(QLatin1String(kShared), shared_.number(kShared).value_or(1) == 0);
    };
    shared_.changed = lookAtShared;
    lookAtShared();
    if (!bus_.isConnected())
        return;
    bus_.connect({}, kPortalPath, kPortalSettings, QStringLiteral("SettingChanged"), this,
                 SLOT(settingChanged(QString, QString, QDBusVariant)));
    portal_.setConnection(bus_);
    portal_.addWatchedService(kPortal); // which starts when the first program wants it
    connect(&portal_, &QDBusServiceWatcher::serviceRegistered, this, &MotionWish::ask);
    ask();
}

void MotionWish::ask() {
    for (const auto& wish : kWishes) {
        const QString space = QLatin1String(wish.space);
        const QString key = QLatin1String(wish.key);
        QDBusMessage read =
            QDBusMessage::createMethodCall(kPortal, kPortalPath, kPortalSettings, QStringLiteral("Read"));
        read << space << key;
        read.setAutoStartService(false);
        auto* const asking = new QDBusPendingCallWatcher(bus_.asyncCall(read), this);
        connect(asking, &QDBusPendingCallWatcher::finished, this,
                [this, space, key](QDBusPendingCallWatcher* done) {
                    done->deleteLater();
                    const QDBusMessage answer = done->reply();
                    if (answer.type() == QDBusMessage::ReplyMessage)
                        settingChanged(space, key, answer.arguments().value(0).value<QDBusVariant>());
                });
    }
}

void MotionWish::settingChanged(const QString& space, const QString& key, const QDBusVariant& value) {
    const auto wish = std::find_if(std::begin(kWishes), std::end(kWishes), [&](const auto& known) {
        return space == QLatin1String(known.space) && key == QLatin1String(known.key);
    });
    if (wish != std::end(kWishes))
        note(space + key, asksForStillness(value.variant(), wish->still));
}

void MotionWish::note(const QString& who, bool asks) {
    const bool before = less();
    if (asks)
        askedBy_.insert(who);
    else
        askedBy_.erase(who);
    if (less() != before && changed)
        changed();
}

} // namespace brovin::desktop
