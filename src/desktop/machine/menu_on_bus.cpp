#include "desktop/machine/menu_on_bus.h"

#include <QAction>
#include <QDBusMetaType>

namespace brovin::desktop {
namespace {

constexpr int kWholeMenu = 0; ///< its number; entries count from 1

/// The protocol marks the access key by an underline, the toolkit by "&".
QString busLabel(QString text) {
    return text.replace(QLatin1Char('_'), QStringLiteral("__")).replace(QLatin1Char('&'), QLatin1Char('_'));
}

} // namespace

QDBusArgument& operator<<(QDBusArgument& out, const BusMenuEntry& entry) {
    out.beginStructure();
    out << entry.id << entry.properties;
    out.beginArray(QMetaType::fromType<QDBusVariant>());
    for (const BusMenuEntry& below : entry.entries)
        out << QDBusVariant(QVariant::fromValue(below));
    out.endArray();
    out.endStructure();
    return out;
}

/// Nobody sends one here.
const QDBusArgument& operator>>(const QDBusArgument& in, BusMenuEntry& entry) {
    QList<QDBusVariant> below;
    in.beginStructure();
    in >> entry.id >> entry.properties >> below;
    in.endStructure();
    return in;
}

QDBusArgument& operator<<(QDBusArgument& out, const BusMenuProperties& entry) {
    out.beginStructure();
    out << entry.id << entry.properties;
    out.endStructure();
    return out;
}

const QDBusArgument& operator>>(const QDBusArgument& in, BusMenuProperties& entry) {
    in.beginStructure();
    in >> entry.id >> entry.properties;
    in.endStructure();
    return in;
}

MenuOnBus::MenuOnBus(QMenu& menu) : menu_(menu) {
    qDBusRegisterMetaType<BusMenuEntry>();
    qDBusRegisterMetaType<BusMenuProperties>();
    qDBusRegisterMetaType<QList<BusMenuProperties>>();
    for (const QAction* const entry : menu_.actions())
        connect(entry, &QAction::changed, this, [this] { emit LayoutUpdated(++revision_, kWholeMenu); });
}

uint MenuOnBus::GetLayout(int parent, int /*depth*/, const QStringList& /*names*/, BusMenuEntry& layout) {
    layout = {parent, propertiesOf(parent), {}};
    if (parent == kWholeMenu)
        for (int id = 1; action(id) != nullptr; ++id)
            layout.entries.append({id, propertiesOf(id), {}});
    return revision_;
}

QList<BusMenuProperties> MenuOnBus::GetGroupProperties(const QList<int>& ids, const QStringList& /*names*/) {
    QList<BusMenuProperties> all;
    for (const int id : ids)
        all.append({id, propertiesOf(id)});
    return all;
}

QDBusVariant MenuOnBus::GetProperty(int id, const QString& name) {
    return QDBusVariant(propertiesOf(id).value(name, QString()));
}

void MenuOnBus::Event(int id, const QString& event, const QDBusVariant& /*data*/, uint /*when*/) {
    if (QAction* const chosen = action(id); chosen != nullptr && event == QLatin1String("clicked"))
        QMetaObject::invokeMethod(chosen, "trigger", Qt::QueuedConnection); // the panel gets its answer first
}

bool MenuOnBus::AboutToShow(int /*id*/) {
    return false; // what it knows is still true
}

QAction* MenuOnBus::action(int id) const {
    return menu_.actions().value(qsizetype{id} - 1); // whatever a stranger asks for
}

QVariantMap MenuOnBus::propertiesOf(int id) const {
    const QAction* const entry = action(id);
    if (entry == nullptr)
        return {{QStringLiteral("children-display"), QStringLiteral("submenu")}};
    if (entry->isSeparator())
        return {{QStringLiteral("type"), QStringLiteral("separator")}};
    QVariantMap properties{{QStringLiteral("label"), busLabel(entry->text())}};
    if (entry->isCheckable()) {
        properties.insert(QStringLiteral("toggle-type"), QStringLiteral("checkmark"));
        properties.insert(QStringLiteral("toggle-state"), entry->isChecked() ? 1 : 0);
    }
    return properties;
}

} // namespace brovin::desktop
