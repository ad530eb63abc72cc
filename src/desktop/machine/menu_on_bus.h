#pragma once

#include <QDBusArgument>
#include <QDBusVariant>
#include <QMenu>
#include <QObject>
#include <QStringList>
#include <QVariantMap>

namespace brovin::desktop {

/// An entry as it travels: its number, its properties, and the entries below it.
struct BusMenuEntry {
    int id = 0;
    QVariantMap properties;
    QList<BusMenuEntry> entries;
};
QDBusArgument& operator<<(QDBusArgument& out, const BusMenuEntry& entry);
const QDBusArgument& operator>>(const QDBusArgument& in, BusMenuEntry& entry);

/// The properties of one entry.
struct BusMenuProperties {
    int id = 0;
    QVariantMap properties;
};
QDBusArgument& operator<<(QDBusArgument& out, const BusMenuProperties& entry);
const QDBusArgument& operator>>(const QDBusArgument& in, BusMenuProperties& entry);

/// A menu without further menus in it, for panels that draw it themselves: com.canonical.dbusmenu. The names
/// are those on the bus.
class MenuOnBus final : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "com.canonical.dbusmenu")
    Q_PROPERTY(uint Version READ version)
    Q_PROPERTY(QString Status READ status)
    Q_PROPERTY(QString TextDirection READ textDirection)
public:
    explicit MenuOnBus(QMenu& menu);

    [[nodiscard]] uint version() const { return 3; }
    [[nodiscard]] QString status() const { return QStringLiteral("normal"); }
    [[nodiscard]] QString textDirection() const { return QStringLiteral("ltr"); }

    // NOLINTBEGIN(readability-identifier-naming)
public slots:
    Q_SCRIPTABLE uint GetLayout(int parent, int depth, const QStringList& names,
                                brovin::desktop::BusMenuEntry& layout);
    Q_SCRIPTABLE QList<brovin::desktop::BusMenuProperties> GetGroupProperties(const QList<int>& ids,
                                                                              const QStringList& names);
    Q_SCRIPTABLE QDBusVariant GetProperty(int id, const QString& name);
    Q_SCRIPTABLE void Event(int id, const QString& event, const QDBusVariant& data, uint when);
    Q_SCRIPTABLE bool AboutToShow(int id);

signals:
    Q_SCRIPTABLE void LayoutUpdated(uint revision, int parent);
    // NOLINTEND(readability-identifier-naming)

private:
    [[nodiscard]] QAction* action(int id) const;
    [[nodiscard]] QVariantMap propertiesOf(int id) const;

    QMenu& menu_;
    uint revision_ = 1;
};

} // namespace brovin::desktop
