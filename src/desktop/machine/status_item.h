#pragma once

#include "desktop/machine/menu_on_bus.h"

#include <QDBusConnection>
#include <QDBusObjectPath>
#include <QIcon>
#include <QList>
#include <QObject>
#include <QPoint>

#include <functional>

namespace brovin::desktop {

/// A picture as it travels: 32 bits a pixel, alpha, red, green, blue in this order.
struct BusPicture {
    int width = 0;
    int height = 0;
    QByteArray pixels;
};
QDBusArgument& operator<<(QDBusArgument& out, const BusPicture& picture);
const QDBusArgument& operator>>(const QDBusArgument& in, BusPicture& picture);

/// What a resting mouse shows.
struct BusToolTip {
    QString title;
};
QDBusArgument& operator<<(QDBusArgument& out, const BusToolTip& tip);
const QDBusArgument& operator>>(const QDBusArgument& in, BusToolTip& tip);

/// The program's icon in a panel that keeps items on the session's bus: org.kde.StatusNotifierItem. Makes
/// itself known when it is made, and is gone with its connection. The names are those on the bus.
class StatusItem final : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.kde.StatusNotifierItem")
    Q_PROPERTY(QString Category READ category)
    Q_PROPERTY(QString Id READ name)
    Q_PROPERTY(QString Title READ name)
    Q_PROPERTY(QString Status READ status)
    Q_PROPERTY(QString IconName READ iconName)
    Q_PROPERTY(QList<brovin::desktop::BusPicture> IconPixmap READ pictures)
    Q_PROPERTY(brovin::desktop::BusToolTip ToolTip READ toolTip)
    Q_PROPERTY(bool ItemIsMenu READ itemIsMenu)
    Q_PROPERTY(QDBusObjectPath Menu READ menu)
public:
    StatusItem(const QIcon& icon, const QString& tip, QMenu& menu);
    ~StatusItem() override;
    StatusItem(const StatusItem&) = delete;
    StatusItem& operator=(const StatusItem&) = delete;

    std::function<void()> activated;
    std::function<void(QPoint at)> menuWanted;

    void setTip(const QString& tip);

    [[nodiscard]] QString category() const { return QStringLiteral("ApplicationStatus"); }
    [[nodiscard]] QString name() const { return QStringLiteral("Brovin"); }
    [[nodiscard]] QString status() const { return QStringLiteral("Active"); }
    [[nodiscard]] QString iconName() const { return {}; }
    [[nodiscard]] const QList<BusPicture>& pictures() const { return pictures_; }
    [[nodiscard]] const BusToolTip& toolTip() const { return tip_; }
    [[nodiscard]] bool itemIsMenu() const { return false; }
    [[nodiscard]] QDBusObjectPath menu() const;

    // NOLINTBEGIN(readability-identifier-naming)
public slots:
    Q_SCRIPTABLE void Activate(int x, int y);
    Q_SCRIPTABLE void SecondaryActivate(int x, int y);
    Q_SCRIPTABLE void ContextMenu(int x, int y);

signals:
    Q_SCRIPTABLE void NewToolTip();
    // NOLINTEND(readability-identifier-naming)

private:
    QList<BusPicture> pictures_;
    BusToolTip tip_;
    MenuOnBus menu_;
    QString connection_; ///< its name in this process
};

} // namespace brovin::desktop
