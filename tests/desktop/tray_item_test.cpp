// The icon as a StatusNotifierItem: the test is the desktop's watcher on a private bus and does what a panel
// does.

#include "desktop/program_process.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusContext>
#include <QDBusInterface>
#include <QDBusMetaType>
#include <QDBusReply>
#include <QDBusVariant>
#include <QMutex>
#include <QSemaphore>
#include <QThread>

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <utility>

namespace brovin::tests {

/// The part of a panel that items make themselves known to.
class Watcher final : public QObject, protected QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.kde.StatusNotifierWatcher")
    Q_PROPERTY(bool IsStatusNotifierHostRegistered READ hostRegistered)
    Q_PROPERTY(int ProtocolVersion READ protocolVersion)
public:
    Watcher(QMutex& hangs, std::function<void(QString)> registered)
        : hangs_(hangs), registered_(std::move(registered)) {}
    [[nodiscard]] bool hostRegistered() const {
        const QMutexLocker hold(&hangs_);
        return true;
    }
    [[nodiscard]] int protocolVersion() const { return 0; }

public slots:
    // NOLINTNEXTLINE(readability-identifier-naming): the name that it has on the bus
    Q_SCRIPTABLE void RegisterStatusNotifierItem(const QString& service) {
        registered_(service.startsWith('/') ? message().service() : service);
    }

private:
    QMutex& hangs_;
    std::function<void(QString)> registered_;
};

/// Runs the watcher on a thread of its own: the program asks it while the test asks the program.
class WatcherThread final : public QThread {
public:
    WatcherThread() {
        start();
        ready_.acquire();
    }
    ~WatcherThread() override {
        quit();
        wait();
    }
    WatcherThread(const WatcherThread&) = delete;
    WatcherThread& operator=(const WatcherThread&) = delete;

    QMutex hangs; ///< held: it answers nobody

    /// The service that has registered; empty: none yet.
    [[nodiscard]] QString item() const {
        const QMutexLocker hold(&mutex_);
        return item_;
    }

protected:
    void run() override {
        Watcher watcher(hangs, [this](const QString& service) {
            const QMutexLocker hold(&mutex_);
            item_ = service;
        });
        const QString name = "watcher";
        {
            QDBusConnection bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, name);
            bus.registerObject("/StatusNotifierWatcher", &watcher,
                               QDBusConnection::ExportScriptableContents |
                                   QDBusConnection::ExportAllProperties);
            bus.registerService("org.kde.StatusNotifierWatcher");
            ready_.release();
            exec();
        }
        QDBusConnection::disconnectFromBus(name); // and the desktop has no panel any more
    }

private:
    QSemaphore ready_;
    mutable QMutex mutex_;
    QString item_;
};

/// A menu entry as it travels: its number, its properties and its own entries.
struct MenuEntry {
    int id = 0;
    QVariantMap properties;
    QList<MenuEntry> entries;
};

const QDBusArgument& operator>>(const QDBusArgument& in, MenuEntry& entry) {
    QList<QDBusVariant> below;
    in.beginStructure();
    in >> entry.id >> entry.properties >> below;
    in.endStructure();
    for (const QDBusVariant& packed : below)
        entry.entries.append(qdbus_cast<MenuEntry>(packed.variant().value<QDBusArgument>()));
    return in;
}

namespace {

const QString kItem = "org.kde.StatusNotifierItem";

/// Sends keys to the window of this title.
void press(const QString& title, const QString& keys) {
    askDesktop({"search", "--onlyvisible", "--name", title, "windowactivate", "--sync"});
    askDesktop({"key", keys}); // not to a window by name: that would not be real input
}

class Panel {
public:
    explicit Panel(const QString& service) : item_(service, "/StatusNotifierItem", kItem) {}

    [[nodiscard]] QVariant property(const char* name) const {
        QDBusInterface properties(item_.service(), item_.path(), "org.freedesktop.DBus.Properties");
        const QDBusReply<QDBusVariant> value = properties.call("Get", kItem, name);
        return value.value().variant();
    }
    void activate() { item_.call("Activate", 10, 10); }

    /// The entries of the item's menu.
    [[nodiscard]] QList<MenuEntry> menu() {
        QDBusInterface menu(item_.service(), menuPath(), "com.canonical.dbusmenu");
        const QDBusMessage reply = menu.call("GetLayout", 0, -1, QStringList());
        if (reply.arguments().size() < 2)
            return {};
        return qdbus_cast<MenuEntry>(reply.arguments().at(1).value<QDBusArgument>()).entries;
    }

    void choose(const MenuEntry& entry) {
        QDBusInterface menu(item_.service(), menuPath(), "com.canonical.dbusmenu");
        menu.asyncCall("Event", entry.id, "clicked", QVariant::fromValue(QDBusVariant(QString())), 0U);
    }

private:
    [[nodiscard]] QString menuPath() { return property("Menu").value<QDBusObjectPath>().path(); }

    QDBusInterface item_;
};

constexpr const char* kLabels = "_Help|_Options|E_xit...||_Quiet|Quiet _for an Hour|Quiet until _Tomorrow";

std::string labelsOf(const QList<MenuEntry>& menu) {
    QStringList labels;
    for (const MenuEntry& entry : menu)
        labels += entry.properties.value("label").toString();
    return labels.join('|').toStdString();
}

TEST(TrayItem, worksInAPanelThatKeepsItemsOnTheBus) {
    const WatcherThread watcher;
    const QTemporaryDir root;
    Process program(root.path());
    EXPECT_TRUE(waitUntil([&watcher] { return !watcher.item().isEmpty(); })) << "it makes itself known";
    EXPECT_FALSE(windowOnScreen()) << "there is an icon, so it starts hidden";

    Panel panel(watcher.item());
    EXPECT_EQ("Active", panel.property("Status").toString());
    EXPECT_TRUE(panel.property("IconPixmap").isValid());
    EXPECT_TRUE(panel.property("ToolTip").isValid());

    panel.activate();
    EXPECT_TRUE(waitUntil(windowOnScreen)) << "a click restores the window";
    panel.activate();
    panel.activate(); // a double click arrives as two clicks, and restores like one
    EXPECT_TRUE(windowOnScreen());
    press(kWindow, "Escape");
    EXPECT_TRUE(waitUntil([] { return !windowOnScreen(); }));

    const QList<MenuEntry> menu = panel.menu();
    EXPECT_EQ(kLabels, labelsOf(menu));
    panel.choose(menu.value(1));
    EXPECT_TRUE(waitUntil(windowOnScreen)) << "so does the menu's entry";
    panel.choose(menu.value(2));
    EXPECT_TRUE(waitForWindow("Leaving So Soon"));
    press("Leaving So Soon", "alt+y");
    EXPECT_TRUE(waitUntil([&program] { return program.ends(10); })) << "it left when told to";
}

TEST(TrayItem, joinsAPanelThatComesLaterThanTheProgramAndOneThatComesBack) {
    const QTemporaryDir root;
    Process program(root.path());
    ASSERT_TRUE(startedIn(root.path()));
    for (const char* const panelIs : {"late", "back"}) {
        const WatcherThread watcher;
        ASSERT_TRUE(waitUntil([&watcher] { return !watcher.item().isEmpty(); })) << panelIs;
        Panel panel(watcher.item());
        EXPECT_EQ("Active", panel.property("Status").toString());
        EXPECT_TRUE(panel.property("ToolTip").isValid());
        const auto icon = panel.property("IconPixmap").value<QDBusArgument>();
        EXPECT_EQ("a(iiay)", icon.currentSignature().toStdString());
        EXPECT_FALSE(windowOnScreen());
        panel.activate();
        EXPECT_TRUE(waitUntil(windowOnScreen)) << panelIs;
        press(kWindow, "Escape");
        EXPECT_TRUE(waitUntil([] { return !windowOnScreen(); })) << "there is an icon to bring it back by";
        const QList<MenuEntry> menu = panel.menu();
        EXPECT_EQ(kLabels, labelsOf(menu));
        panel.choose(menu.value(4));
        EXPECT_TRUE(waitUntil([&panel, panelIs] { // it is switched on, and off again
            return panel.menu().value(4).properties.value("toggle-state").toInt() ==
                   (panelIs[0] == 'l' ? 1 : 0);
        }));
    }
}

TEST(TrayItem, keepsNobodyWaitingForAPanelThatHangs) {
    WatcherThread watcher;
    watcher.hangs.lock();
    const QTemporaryDir root;
    Process program(root.path());
    EXPECT_TRUE(startedIn(root.path()));
    EXPECT_TRUE(watcher.item().isEmpty());
    watcher.hangs.unlock();
    EXPECT_TRUE(waitUntil([&watcher] { return !watcher.item().isEmpty(); }));
    EXPECT_FALSE(windowOnScreen());
}

TEST(TrayItem, movesToAPanelThatEmbedsIconsAndBack) {
    const QTemporaryDir root;
    auto watcher = std::make_unique<WatcherThread>();
    Process program(root.path());
    ASSERT_TRUE(waitUntil([&watcher] { return !watcher->item().isEmpty(); }));
    for (const bool first : {true, false}) {
        watcher.reset();
        QProcess panel;
        panel.start("trayer", {"--edge", "top", "--align", "right", "--widthtype", "request"});
        EXPECT_TRUE(waitUntil([] {
            input({"mousemove", "1014", "10", "click", "1"});
            return windowOnScreen();
        })) << "a click on the icon restores the window";
        press(kWindow, "Escape");
        EXPECT_TRUE(waitUntil([] { return !windowOnScreen(); }));
        panel.kill();
        panel.waitForFinished();
        watcher = std::make_unique<WatcherThread>();
        EXPECT_TRUE(waitUntil([&watcher] { return !watcher->item().isEmpty(); })) << first;
    }
}

} // namespace
} // namespace brovin::tests

#ifndef __clang_analyzer__ // which is not to judge what the toolkit generates
#include "tray_item_test.moc"
#endif
