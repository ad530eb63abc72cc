#pragma once

#include "desktop/machine/x_settings.h"

#include <QDBusConnection>
#include <QDBusServiceWatcher>
#include <QDBusVariant>
#include <QObject>
#include <QString>

#include <functional>
#include <set>

namespace brovin::desktop {

/// Whether the user has asked his desktop for no animation, as far as it tells: by
/// org.freedesktop.portal.Settings on the session's bus, and by the settings that X11's desktops share.
/// Nothing is waited for, and no service is started.
class MotionWish final : public QObject {
    Q_OBJECT
public:
    MotionWish();

    std::function<void()> changed;

    [[nodiscard]] bool less() const { return !askedBy_.empty(); }

private slots:
    void settingChanged(const QString& space, const QString& key, const QDBusVariant& value);

private:
    void ask();
    void note(const QString& who, bool asks);

    QDBusConnection bus_ = QDBusConnection::sessionBus();
    QDBusServiceWatcher portal_;
    XSettings shared_;
    std::set<QString> askedBy_; ///< settings that say so
};

} // namespace brovin::desktop
