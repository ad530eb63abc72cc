#include "desktop/desktop_world.h"
#include "desktop/journey.h"
#include "desktop/program_process.h"

#include <QAbstractButton>
#include <QFile>
#include <QMessageBox>
#include <QProcess>
#include <QSet>

namespace brovin::tests {
namespace {

QMessageBox* openQuestion() {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    return box != nullptr && box->isVisible() && box->isActiveWindow() ? box : nullptr;
}

void moveMouse(QPoint place) {
    sendInput({"mousemove", QString::number(place.x()), QString::number(place.y())});
}

QPoint middleOf(const QWidget* widget) {
    return widget->mapToGlobal(widget->rect().center());
}

/// Clicks each tab in turn and looks at its page and at its picture under the mouse.
void visitTabs(Journey& journey, const DesktopWorld& world) {
    for (std::size_t tab = 0; tab < ui::FrmOptions::kTabs; ++tab) {
        const std::string name = "imgTabs" + std::to_string(tab);
        const std::string hovered = "img" + std::to_string(tab) + "d";
        journey.then(
            "the window", [&world] { return world.program->window().isActiveWindow(); },
            [&world, name] { click(world.widget(name.c_str())); });
        journey.then(
            "page " + std::to_string(tab) + " with its hovered picture",
            [&world, tab, hovered] {
                const std::string page = "picTab" + std::to_string(tab);
                return world.widget(page.c_str())->isVisible() &&
                       world.form().imgTabs[tab].picture() == hovered && world.form().lblTabs[tab].bold();
            },
            [&world, tab] {
                Journey::takePicture(QString("tab%1").arg(tab));
                moveMouse(middleOf(&world.program->window()));
            });
        journey.then(
            "its normal picture again",
            [&world, tab, hovered] { return world.form().imgTabs[tab].picture() != hovered; }, nullptr);
    }
}

/// Opens the icon's menu and chooses its third entry, the exit.
void askToLeave(Journey& journey, const DesktopWorld& world, QMessageBox::StandardButton answer) {
    journey.then(
        "the icon", [&world] { return !world.program->trayIcon().isEmpty(); },
        [&world] { clickAt(world.program->trayIcon().center(), 3); });
    journey.then(
        "its menu", [] { return QApplication::activePopupWidget() != nullptr; },
        [] {
            Journey::takePicture("tray-menu");
            pressKeys({"Down", "Down", "Down", "Return"});
        });
    journey.then(
        "the exit question", [] { return openQuestion() != nullptr; },
        [answer] { click(openQuestion()->button(answer)); });
}

TEST(LifeJourney, livesBehindItsIconUntilToldToLeave) {
    DesktopWorld world;
    world.start();
    Journey journey;
    journey.then(
        "the icon in the tray", [&world] { return !world.program->trayIcon().isEmpty(); },
        [&world] { clickAt(world.program->trayIcon().center()); });
    visitTabs(journey, world);
    journey.then(
        "the window", [&world] { return world.program->window().isVisible(); },
        [&world] {
            sendInput({"windowminimize", QString::number(world.program->window().winId())});
        });
    journey.then(
        "the window's going", [&world] { return !world.program->window().isVisible(); }, nullptr);
    askToLeave(journey, world, QMessageBox::No);
    journey.then(
        "the question's end", [] { return openQuestion() == nullptr; },
        [&world] { clickAt(world.program->trayIcon().center()); });
    journey.then(
        "the window's return", [&world] { return world.program->window().isActiveWindow(); },
        [&world] { world.program->window().close(); });
    journey.then(
        "the window's going by its close box", [&world] { return !world.program->window().isVisible(); },
        nullptr);
    askToLeave(journey, world, QMessageBox::Yes);
    // The program leaves the event loop by itself; where it does not, this step waits in vain.
    journey.then(
        "the program's end", [] { return false; }, nullptr);
    journey.run();
    EXPECT_TRUE(world.form().exitConfirmed);
    EXPECT_TRUE(world.program->trayIcon().isEmpty());
}

/// The libraries that a process has in its memory.
QSet<QByteArray> librariesOf(qint64 pid) {
    QFile maps(QString("/proc/%1/maps").arg(pid));
    EXPECT_TRUE(maps.open(QIODevice::ReadOnly));
    QSet<QByteArray> libraries;
    for (const QByteArray& line : maps.readAll().split('\n'))
        if (const QByteArray file = line.mid(line.lastIndexOf('/') + 1); file.contains(".so"))
            libraries.insert(file);
    return libraries;
}

TEST(LifeJourney, startsWithAHundredLibrariesAtMost) {
    const QTemporaryDir root;
    const Process process(root.path());
    ASSERT_TRUE(waitUntil([&process] {
        return !askDesktop({"search", "--onlyvisible", "--pid", QString::number(process.pid())}).isEmpty();
    })) << "its icon";
    letPass(1000); // what is loaded with the icon
    const QSet<QByteArray> libraries = librariesOf(process.pid());
    EXPECT_TRUE(libraries.contains("libqxcb.so"));
    EXPECT_LE(libraries.size(), 100) << libraries.values().join(' ').toStdString();
    for (const QByteArray& library : libraries)
        for (const char* later : {"brovin_history", "brovin_movie", "brovin_requests", "libcurl.",
                                  "libsqlite3.", "libav", "libQt6Sql."})
            EXPECT_FALSE(library.startsWith(later)) << library.toStdString() << " before anything needs it";
}

TEST(LifeJourney, startsWithTheSystemWhenToldTo) {
    DesktopWorld world;
    world.start();
    const QString entry = QString::fromStdString(world.places.autostartFolder + "/brovin.desktop");
    Journey journey;
    journey.then(
        "the icon in the tray", [&world] { return !world.program->trayIcon().isEmpty(); },
        [&world] { clickAt(world.program->trayIcon().center()); });
    journey.then(
        "the window", [&world] { return world.program->window().isActiveWindow(); },
        [&world] { click(world.widget("imgTabs6")); });
    for (const bool on : {true, false}) {
        journey.then(
            "the box", [&world] { return world.widget("chkStartWindows")->isVisible(); },
            [&world] {
                const QWidget* box = world.widget("chkStartWindows");
                clickAt(box->mapToGlobal(QPoint(10, box->height() / 2)));
            });
        journey.then(
            on ? "the entry" : "the entry's going", [entry, on] { return QFile::exists(entry) == on; },
            [&world, entry, on] {
                EXPECT_EQ(on, world.form().chkStartWindows.checked());
                if (!on)
                    return;
                QProcess check;
                check.start("desktop-file-validate", {entry});
                EXPECT_TRUE(check.waitForFinished() && check.exitCode() == 0)
                    << check.readAllStandardOutput().toStdString();
            });
    }
    journey.run();
    EXPECT_FALSE(QFile::exists(entry));
}

QByteArray contentOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

TEST(LifeJourney, survivesAKillAndKeepsASecondCopyOut) {
    const QTemporaryDir root;
    const QString settings = root.filePath("config/Brovin/Brovin.conf");
    QDir().mkpath(QFileInfo(settings).path());
    {
        QFile file(settings);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("[Settings]\nForce=0\nInterval=7\n[filelist.txt]\nNumber=1\nEntry1=thumbs.db\n");
    }
    const auto started = [&settings] { return contentOf(settings).contains("Reminder="); };
    Process killed(root.path());
    for (int i = 0; i < 100 && !started(); ++i)
        EXPECT_FALSE(killed.ends(100));
    ASSERT_TRUE(started());
    killed.kill();
    const QByteArray kept = contentOf(settings);
    for (const char* line : {"Force=0\n", "Interval=7\n", "Entry1=thumbs.db\n"})
        EXPECT_TRUE(kept.contains(line)) << line;

    Process next(root.path());
    EXPECT_FALSE(next.ends(1500)) << "no false alarm about the copy that was killed";
    Process second(root.path());
    ASSERT_TRUE(waitForWindow("Already Here")) << "the message of the second copy";
    sendInput({"key", "Return"});
    EXPECT_TRUE(second.ends(10'000));
    EXPECT_FALSE(next.ends(200)) << "the first one is untouched";
}

TEST(LifeJourney, resetsTheTotalThatAnotherProcessHasRaised) {
    DesktopWorld world;
    for (const char* file : {"Share/Thumbs.db", "Share/Sub/Thumbs.db"})
        world.makeFile(file);
    world.start();
    world.form().mPopRestore.click();
    world.form().imgTabs[2].click();
    const auto total = [&world](const char* number) {
        return contentOf(QString::fromStdString(world.places.settingsFile))
            .contains(QByteArray("\nTotalNuked=") + number + '\n');
    };
    QProcess scan;
    scan.setProcessEnvironment(environmentWith(world.path("config"), world.path("share")));
    scan.start(QStringLiteral(BROVIN_PROGRAM),
               {"--scan", "--folder", world.path("Share"), "--nasty", "Thumbs.db"});
    ASSERT_TRUE(scan.waitForFinished(10'000));
    EXPECT_TRUE(total("2")) << scan.readAllStandardError().toStdString();

    Journey journey;
    const auto question = [] { return qobject_cast<QMessageBox*>(QApplication::activeModalWidget()); };
    const auto yes = [question] {
        return question() == nullptr ? nullptr : question()->button(QMessageBox::Yes);
    };
    journey.then(
        "the button",
        [&world] {
            return world.widget("cmdResetCounter")->isVisible() && world.program->window().isActiveWindow();
        },
        [&world] { click(world.widget("cmdResetCounter")); });
    journey.then(
        "the question with the new total", [yes] { return yes() != nullptr && yes()->isEnabled(); },
        [question, yes] {
            EXPECT_TRUE(question()->text().contains("2")) << question()->text().toStdString();
            click(yes());
        });
    journey.then(
        "the reset", [total] { return total("0"); }, nullptr);
    journey.run();
}

} // namespace
} // namespace brovin::tests
