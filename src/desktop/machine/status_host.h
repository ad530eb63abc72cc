#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusServiceWatcher>
#include <QObject>

#include <functional>

namespace brovin::desktop {

/// Whether a panel shows status items at this moment: org.kde.StatusNotifierWatcher on the session's bus, and
/// its IsStatusNotifierHostRegistered.
class StatusHost final : public QObject {
    Q_OBJECT
public:
    /// Looks at once, and waits a second for the answer.
    StatusHost();

    /// It has come, gone, or answered at last. A watcher that is started anew goes and comes.
    std::function<void()> changed;

    /// False: there is a watcher that owes an answer. Whoever asks it as well would wait with it.
    [[nodiscard]] bool answers() const { return answers_; }

    [[nodiscard]] bool present() const { return present_; }

private slots:
    void look();

private:
    void hear(const QDBusMessage& answer);
    void set(bool present);

    QDBusConnection bus_ = QDBusConnection::sessionBus();
    QDBusServiceWatcher watcher_;
    bool present_ = false;
    bool answers_ = true;
};

} // namespace brovin::desktop
