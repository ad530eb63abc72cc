#include "desktop/machine/status_item.h"

#include <QCoreApplication>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusPendingCall>
#include <QImage>
#include <QtEndian>

namespace brovin::desktop {
namespace {

const QString kItemPath = QStringLiteral("/StatusNotifierItem");
const QString kMenuPath = QStringLiteral("/MenuBar");

BusPicture busPicture(const QIcon& icon, int size) {
    const QImage image = icon.pixmap(size, size).toImage().convertToFormat(QImage::Format_ARGB32);
    BusPicture picture{image.width(), image.height(), {}};
    picture.pixels.reserve(image.sizeInBytes());
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) {
            const quint32 pixel = qToBigEndian(static_cast<quint32>(image.pixel(x, y)));
            picture.pixels.append(reinterpret_cast<const char*>(&pixel), sizeof pixel);
        }
    return picture;
}

} // namespace

QDBusArgument& operator<<(QDBusArgument& out, const BusPicture& picture) {
    out.beginStructure();
    out << picture.width << picture.height << picture.pixels;
    out.endStructure();
    return out;
}

const QDBusArgument& operator>>(const QDBusArgument& in, BusPicture& picture) {
    in.beginStructure();
    in >> picture.width >> picture.height >> picture.pixels;
    in.endStructure();
    return in;
}

QDBusArgument& operator<<(QDBusArgument& out, const BusToolTip& tip) {
    out.beginStructure();
    out << QString() << QList<BusPicture>() << tip.title
        << QString(); // a picture's name, pictures, and no text
    out.endStructure();
    return out;
}

const QDBusArgument& operator>>(const QDBusArgument& in, BusToolTip& tip) {
    QString unused;
    QList<BusPicture> pictures;
    in.beginStructure();
    in >> unused >> pictures >> tip.title >> unused;
    in.endStructure();
    return in;
}

StatusItem::StatusItem(const QIcon& icon, const QString& tip, QMenu& menu) : tip_{tip}, menu_(menu) {
    qDBusRegisterMetaType<BusPicture>();
    qDBusRegisterMetaType<QList<BusPicture>>();
    qDBusRegisterMetaType<BusToolTip>();
    for (const int size : {22, 32, 48})
        pictures_.append(busPicture(icon, size));
    static int made = 1; // the toolkit may have had the first
    connection_ = QStringLiteral("org.kde.StatusNotifierItem-%1-%2")
                      .arg(QCoreApplication::applicationPid())
                      .arg(++made);
    QDBusConnection bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, connection_);
    constexpr auto kAll = QDBusConnection::ExportScriptableContents | QDBusConnection::ExportAllProperties;
    bus.registerObject(kItemPath, this, kAll);
    bus.registerObject(kMenuPath, &menu_, kAll);
    const QString watcher = QStringLiteral("org.kde.StatusNotifierWatcher");
    QDBusMessage known =
        QDBusMessage::createMethodCall(watcher, QStringLiteral("/StatusNotifierWatcher"), watcher,
                                       QStringLiteral("RegisterStatusNotifierItem"));
    // A sandbox lets nobody take such a name; panels know items by their connection's number as well.
    bus.asyncCall(known << (bus.registerService(connection_) ? connection_ : bus.baseService()));
}

StatusItem::~StatusItem() {
    QDBusConnection::disconnectFromBus(connection_);
}

void StatusItem::setTip(const QString& tip) {
    tip_.title = tip;
    emit NewToolTip();
}

QDBusObjectPath StatusItem::menu() const {
    return QDBusObjectPath(kMenuPath);
}

void StatusItem::Activate(int /*x*/, int /*y*/) {
    if (activated)
        activated();
}

void StatusItem::SecondaryActivate(int x, int y) {
    Activate(x, y);
}

void StatusItem::ContextMenu(int x, int y) {
    if (menuWanted)
        menuWanted({x, y});
}

} // namespace brovin::desktop
