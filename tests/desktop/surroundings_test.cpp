// What the desktop tells of the user: the test is its screen saver, its service of notifications and its
// log-on service, on a private bus, which is the
// system's as well.

#include "desktop/machine/desktop_surroundings.h"
#include "desktop/real_input.h"

#include <QApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusVariant>
#include <QDBusVirtualObject>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QWidget>

#include <gtest/gtest.h>

namespace brovin::tests {
namespace {

const QString kLogin = "org.freedesktop.login1";
const QString kSessionPath = "/org/freedesktop/login1/session/_32";

void tellChanged(const QDBusConnection& bus, const QString& path, const QString& interface,
                 const QString& name, bool value) {
    auto signal = QDBusMessage::createSignal(path, "org.freedesktop.DBus.Properties", "PropertiesChanged");
    signal << interface << QVariantMap{{name, value}} << QStringList();
    bus.send(signal);
}

/// Answers whatever is asked of it.
class Service final : public QDBusVirtualObject {
public:
    bool locked = false;

    [[nodiscard]] QString introspect(const QString& /*path*/) const override { return {}; }
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& bus) override {
        QVariant answer = true;
        if (message.member() == "GetSession" && message.arguments().value(0) == "2")
            answer = QVariant::fromValue(QDBusObjectPath(kSessionPath));
        else if (message.arguments().value(1) == "Id")
            answer = QVariant::fromValue(QDBusVariant("2"));
        else if (message.member() == "Get")
            answer = QVariant::fromValue(QDBusVariant(locked));
        return bus.send(message.createReply(answer));
    }
};

TEST(Surroundings, areToldByTheServicesOfTheSession) {
    QDBusConnection bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, "desktop");
    Service login;
    login.locked = true;
    Service notifications;
    bus.registerVirtualObject("/org/freedesktop/login1", &login, QDBusConnection::SubPath);
    bus.registerVirtualObject("/org/freedesktop/Notifications", &notifications);
    bus.registerService(kLogin);
    bus.registerService("org.freedesktop.Notifications");

    desktop::DesktopSurroundings around;
    int changes = 0;
    around.setChanged([&changes] { ++changes; });
    EXPECT_TRUE(waitUntil([&] { return around.locked(); })) << "it was locked when the program started";
    tellChanged(bus, kSessionPath, kLogin + ".Session", "LockedHint", false);
    EXPECT_TRUE(waitUntil([&] { return !around.locked(); }));
    for (const bool active : {true, false}) {
        auto signal = QDBusMessage::createSignal("/org/freedesktop/ScreenSaver",
                                                 "org.freedesktop.ScreenSaver", "ActiveChanged");
        bus.send(signal << active);
        EXPECT_TRUE(waitUntil([&] { return around.locked() == active; }));
    }
    EXPECT_FALSE(around.doNotDisturb());
    tellChanged(bus, "/org/freedesktop/Notifications", "org.freedesktop.Notifications", "Inhibited", true);
    EXPECT_TRUE(waitUntil([&] { return around.doNotDisturb(); }));
    EXPECT_EQ(5, changes);

    auto signal =
        QDBusMessage::createSignal("/org/mate/ScreenSaver", "org.mate.ScreenSaver", "ActiveChanged");
    bus.send(signal << true);
    EXPECT_TRUE(waitUntil([&] { return around.locked(); }));
    bus = QDBusConnection(QString());
    QDBusConnection::disconnectFromBus("desktop");
    EXPECT_TRUE(waitUntil([&] { return !around.locked() && !around.doNotDisturb(); })) << "they have crashed";
    QDBusConnection next = QDBusConnection::connectToBus(QDBusConnection::SessionBus, "next");
    next.registerVirtualObject("/org/freedesktop/Notifications", &login);
    next.registerService("org.freedesktop.Notifications");
    EXPECT_TRUE(waitUntil([&] { return around.doNotDisturb(); })) << "the next one begins silent";
    next = QDBusConnection(QString());
    QDBusConnection::disconnectFromBus("next");
    // And somebody who is gone before anybody could look for him.
    QProcess::execute("dbus-send", {"--session", "--type=signal", "/org/mate/ScreenSaver",
                                    "org.mate.ScreenSaver.ActiveChanged", "boolean:true"});
    EXPECT_TRUE(waitUntil([&] { return changes == 12; })) << changes;
    EXPECT_FALSE(around.locked());
}

/// Keeps what the desktop's settings say, as its portal does.
class Portal final : public QDBusVirtualObject {
public:
    QString space;
    QVariant value;

    [[nodiscard]] QString introspect(const QString& /*path*/) const override { return {}; }
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& bus) override {
        if (message.arguments().value(0) != space)
            return bus.send(message.createErrorReply("org.freedesktop.portal.Error.NotFound", "no setting"));
        const auto wrapped = QVariant::fromValue(QDBusVariant(QVariant::fromValue(QDBusVariant(value))));
        return bus.send(message.createReply(wrapped));
    }
};

TEST(Surroundings, areToldOfTheWishForStillnessByThePortal) {
    const struct {
        QString space, key;
        QVariant still, moving;
    } cases[] = {
        {"org.gnome.desktop.interface", "enable-animations", false, true},
        {"org.kde.kdeglobals.KDE", "AnimationDurationFactor", "0", "1.5"},
        {"org.freedesktop.appearance", "reduced-motion", 1U, 0U},
    };
    for (const auto& [space, key, still, moving] : cases) {
        desktop::DesktopSurroundings around; // before there is a portal
        EXPECT_FALSE(around.lessMotion());
        QDBusConnection bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, "portal");
        Portal portal;
        portal.space = space;
        portal.value = still;
        bus.registerVirtualObject("/org/freedesktop/portal/desktop", &portal);
        bus.registerService("org.freedesktop.portal.Desktop");
        EXPECT_TRUE(waitUntil([&] { return around.lessMotion(); })) << key.toStdString();
        auto signal = QDBusMessage::createSignal("/org/freedesktop/portal/desktop",
                                                 "org.freedesktop.portal.Settings", "SettingChanged");
        bus.send(signal << space << key << QVariant::fromValue(QDBusVariant(moving)));
        EXPECT_TRUE(waitUntil([&] { return !around.lessMotion(); })) << key.toStdString();
        QDBusConnection::disconnectFromBus("portal");
    }
}

TEST(Surroundings, areToldOfTheWishForStillnessByX11) {
    const QTemporaryDir folder;
    const auto write = [&folder](const char* settings) {
        QFile file(folder.filePath("settings"));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(settings);
    };
    desktop::DesktopSurroundings around;
    write("Net/ThemeName \"odd\"\nGtk/A (1,2,3,4)\nGtk/EnableAnimations 0\n");
    QProcess daemon;
    daemon.start("xsettingsd", {"-c", folder.filePath("settings")});
    EXPECT_TRUE(waitUntil([&] { return around.lessMotion(); }));
    write("Gtk/EnableAnimations 1\n");
    QProcess::execute("kill", {"-HUP", QString::number(daemon.processId())});
    EXPECT_TRUE(waitUntil([&] { return !around.lessMotion(); }));
    write("Gtk/EnableAnimations 0\n");
    QProcess::execute("kill", {"-HUP", QString::number(daemon.processId())});
    EXPECT_TRUE(waitUntil([&] { return around.lessMotion(); }));
    daemon.kill();
    daemon.waitForFinished();
    EXPECT_TRUE(waitUntil([&] { return !around.lessMotion(); })) << "nobody asks any more";
}

TEST(XSettings, surviveDamage) {
    std::vector<std::uint8_t> bytes{0, 0, 0,   0, 9, 0, 0, 0, 1, 0, 0, 0, 0, 0,
                                    1, 0, 'a', 0, 0, 0, 9, 0, 0, 0, 7, 0, 0, 0};
    EXPECT_EQ(7, desktop::numberInXSettings(bytes, "a"));
    EXPECT_FALSE(desktop::numberInXSettings(bytes, "b"));
    for (const std::size_t at : {8U, 14U}) { // more settings than there are, a longer name
        auto damaged = bytes;
        damaged[at] = damaged[at + 1] = 0xFF;
        EXPECT_FALSE(desktop::numberInXSettings(damaged, "b"));
    }
    for (; !bytes.empty(); bytes.pop_back())
        EXPECT_EQ(bytes.size() == 28, desktop::numberInXSettings(bytes, "a").has_value()) << bytes.size();
}

TEST(Surroundings, knowAWindowThatHasTheScreenForItself) {
    desktop::DesktopSurroundings around;
    QProcess film; // of another program
    film.start("xmessage", {"a film"});
    input({"search", "--onlyvisible", "--sync", "--class", "Xmessage", "windowactivate", "--sync"});
    EXPECT_FALSE(around.fullScreen());
    const auto say = [](const QStringList& change) { // what a window manager writes on a window
        QProcess::execute("xprop", QStringList{"-name", "xmessage", "-f", "_NET_WM_STATE", "32a"} + change);
    };
    say({"-set", "_NET_WM_STATE", "_NET_WM_STATE_FULLSCREEN"});
    EXPECT_TRUE(waitUntil([&] { return around.fullScreen().has_value(); }));
    say({"-remove", "_NET_WM_STATE"});
    EXPECT_TRUE(waitUntil([&] { return !around.fullScreen(); }));
    say({"-set", "_NET_WM_STATE", "_NET_WM_STATE_FULLSCREEN"});
    EXPECT_TRUE(waitUntil([&] { return around.fullScreen().has_value(); }));
    QWidget ours;
    ours.setWindowTitle("ours");
    ours.show();
    input({"search", "--onlyvisible", "--sync", "--name", "ours", "windowactivate", "--sync"});
    EXPECT_TRUE(waitUntil([&] { return !around.fullScreen(); })) << "the user is not at the film";
    ours.showFullScreen();
    EXPECT_TRUE(waitUntil([&] { return around.fullScreen() == platform::Area{0, 0, 1024, 768}; }));
    film.kill();
    film.waitForFinished();

    ours.showNormal();
    EXPECT_TRUE(waitUntil([&] { return !around.fullScreen(); }));
    QWidget overlay(nullptr, Qt::BypassWindowManagerHint); // as a switcher's, which takes the keys
    overlay.setGeometry(0, 0, 1024, 768);
    overlay.show();
    overlay.grabKeyboard();
    letPass(300);
    EXPECT_FALSE(around.fullScreen());
    ours.showMaximized();
    EXPECT_TRUE(waitUntil([&] { return ours.width() == 1024; }));
    EXPECT_FALSE(around.fullScreen());
}

} // namespace
} // namespace brovin::tests
