// Boxes among other windows: none is lost, and none is answered by what is meant for another window.

#include "desktop/desktop_world.h"
#include "desktop/journey.h"
#include "desktop/program_process.h"

#include <QAbstractButton>
#include <QMessageBox>
#include <QTimer>

namespace brovin::tests {
namespace {

QWidget* shownBox() {
    return QApplication::activeModalWidget();
}
QMessageBox* openMessage() {
    return qobject_cast<QMessageBox*>(shownBox());
}
QString idOf(const QWidget* window) {
    return QString::number(window->winId());
}
void clickOn(QPoint place, const char* button = "1") {
    input(at(place) + QStringList{"click", button});
}

/// Runs `steps` inside of the box that `open` brings up, and lets go of it whatever happens.
void during(const std::function<void()>& open, const std::function<void()>& steps) {
    bool met = false;
    QTimer look;
    QObject::connect(&look, &QTimer::timeout, [&] {
        if (met || shownBox() == nullptr || !shownBox()->isVisible())
            return;
        met = true;
        steps();
        if (shownBox() != nullptr)
            shownBox()->hide();
    });
    look.start(50);
    open();
    EXPECT_TRUE(waitUntil([&met] { return met; }));
}

TEST(BoxJourney, theIconBringsBackWhatIsOpen) {
    DesktopWorld world;
    world.start();
    ASSERT_TRUE(waitUntil([&world] { return !world.program->trayIcon().isEmpty(); }));
    letPass(300); // it takes its final place
    clickOn(world.program->trayIcon().center());
    const QWidget& window = world.program->window();
    ASSERT_TRUE(waitUntil([&window] { return window.isActiveWindow(); }));
    const auto inFront = [] { return shownBox() != nullptr && shownBox()->isActiveWindow(); };
    const auto lostAndFound = [&] {
        EXPECT_TRUE(waitUntil(inFront));
        for (const char* mouseButton : {"1", "3"}) {
            input({"windowminimize", idOf(&window)});
            letPass(300);
            clickOn(world.program->trayIcon().center(), mouseButton);
            EXPECT_TRUE(waitUntil(inFront)) << mouseButton;
            letPass(200);
            const QByteArray seen = askDesktop({"search", "--onlyvisible", "--name", "."});
            EXPECT_TRUE(seen.contains(idOf(shownBox()).toUtf8())) << mouseButton;
        }
        Journey::takePicture("brought-back");
    };
    for (ui::Button* opener : {&world.form().cmdExit, &world.form().cmdAddFile, &world.form().cmdAddFolder})
        during([opener] { opener->click(); }, lostAndFound);
    EXPECT_FALSE(world.form().exitConfirmed);
}

/// Somebody else's window, which tells of the keys that it gets.
class OtherWindow {
public:
    OtherWindow() {
        process_.start("xev", {"-event", "keyboard", "-geometry", "300x200+0+400"});
        EXPECT_TRUE(waitForWindow("Event Tester"));
        id_ = askDesktop({"search", "--onlyvisible", "--name", "Event Tester"});
        input({"windowactivate", "--sync", id_});
    }
    ~OtherWindow() {
        process_.kill();
        process_.waitForFinished();
    }
    OtherWindow(const OtherWindow&) = delete;
    OtherWindow& operator=(const OtherWindow&) = delete;

    [[nodiscard]] bool active() const { return askDesktop({"getactivewindow"}) == id_; }
    [[nodiscard]] qsizetype keys() {
        process_.waitForReadyRead(300);
        heard_ += process_.readAllStandardOutput();
        return heard_.count("KeyPress event");
    }

private:
    QProcess process_;
    QByteArray id_;
    QByteArray heard_;
};

TEST(BoxJourney, aReminderLeavesTheKeyboardWhereItIs) {
    DesktopWorld world;
    world.start();
    OtherWindow other;
    ASSERT_TRUE(waitUntil([&other] { return other.active(); }));
    world.form().chkBackup.setValue(1);
    world.form().chkMsgBox.setValue(1);
    QTimer bell;
    QObject::connect(&bell, &QTimer::timeout, [&world] {
        world.form().dtpBackup.setValue(
            std::chrono::floor<std::chrono::seconds>(platform::DateTime(std::chrono::seconds(
                QDateTime::currentSecsSinceEpoch() + QDateTime::currentDateTime().offsetFromUtc()))));
    });
    bell.start(100);
    const auto ring = [&world] { world.form().Timer1.setInterval(std::chrono::milliseconds(50)); };
    during(ring, [&] {
        letPass(300);
        input({"key", "--delay", "40", "Return", "y", "space", "Escape"});
        ASSERT_NE(nullptr, openMessage()) << "nobody has answered it";
        EXPECT_TRUE(other.active());
        EXPECT_EQ(4, other.keys());
        QByteArray states;
        EXPECT_TRUE(waitUntil([&states] {
            QProcess state;
            state.start("xprop", {"-id", idOf(openMessage()), "_NET_WM_STATE"});
            state.waitForFinished();
            states = state.readAllStandardOutput();
            return states.contains("DEMANDS_ATTENTION") && states.contains("ABOVE");
        })) << states.toStdString();
        Journey::takePicture("unasked");
        clickOn(openMessage()->button(QMessageBox::Ok)->mapToGlobal(QPoint(-20, 5)));
        EXPECT_TRUE(waitUntil([] { return openMessage()->isActiveWindow(); }));
        input({"key", "Return"});
        EXPECT_EQ(nullptr, openMessage());
    });
}

} // namespace
} // namespace brovin::tests
