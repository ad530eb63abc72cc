#include "desktop/desktop_world.h"
#include "desktop/journey.h"
#include "desktop/scripted_server.h"

#include <QAbstractButton>
#include <QLabel>
#include <QMessageBox>
#include <QProcess>
#include <QProgressBar>
#include <QPushButton>
#include <QThread>

namespace brovin::tests {
namespace {

/// The real program before the maker's real server, which offers a newer version with a signature.
struct UpdateWorld : DesktopWorld {
    UpdateWorld() {
        places.installedFolder = BROVIN_SHARE;
        QDir().mkpath(path("tmp"));
        QDir().mkpath(path("maker"));
        qputenv("TMPDIR", path("tmp").toUtf8());
        qputenv("BROVIN_MARK", path("mark").toUtf8());
        key = maker({"keys", "--secret", path("secret")}).trimmed().toStdString();
        server.start(QStringLiteral(BROVIN_UPDATE_SERVER_PROGRAM),
                     {"serve", "--folder", path("maker"), "--port", "0"});
        if (server.waitForStarted() && server.waitForReadyRead())
            address = QString(server.readLine()).section("listening on ", 1).trimmed().toStdString();
    }
    ~UpdateWorld() {
        qunsetenv("TMPDIR");
        server.kill();
        server.waitForFinished();
    }
    UpdateWorld(const UpdateWorld&) = delete;
    UpdateWorld& operator=(const UpdateWorld&) = delete;

    static QByteArray maker(const QStringList& arguments) {
        QProcess command;
        command.start(QStringLiteral(BROVIN_UPDATE_SERVER_PROGRAM), arguments);
        EXPECT_TRUE(command.waitForFinished());
        EXPECT_EQ(0, command.exitCode()) << command.readAllStandardError().toStdString();
        return command.readAllStandardOutput();
    }
    void offerInstaller() const {
        ASSERT_TRUE(QFile::copy(QStringLiteral(BROVIN_INSTALLER), path("maker/setup")));
        maker({"sign", "--secret", path("secret"), "--version", "1.3.0", path("maker/setup")});
        makeFile(
            "maker/program.txt",
            "version=1.3.0\nfile=setup\nchanges=Sweeps twice as fast|Knows three more jokes|Never forgets "
            "a birthday\n");
    }
    void startAsking(const std::string& where) {
        program = std::make_unique<desktop::DesktopProgram>(places, settings::ProgramInfo{"Brovin", 1, 2, 3},
                                                            desktop::UpdateSource{where, key});
        ASSERT_TRUE(program->start());
        form().chkAgent.setValue(0); // who would tell the good news aloud instead of in a box
        form().imgTabs[6].click();
        form().mPopRestore.click();
    }
    [[nodiscard]] QByteArray settings() const {
        QFile file(QString::fromStdString(places.settingsFile));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    /// What lies in the folder for downloads.
    [[nodiscard]] QStringList downloads() const {
        const QDir folder(path("tmp/brovin-%1").arg(::geteuid()));
        return folder.entryList(QDir::Files | QDir::System | QDir::Hidden);
    }

    QProcess server;
    std::string address;
    std::string key;
};

QMessageBox* openBox() {
    return qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
}
QWidget* downloadWindow() {
    QWidget* window = QApplication::activeModalWidget();
    return window != nullptr && window->objectName() == QLatin1String("frmDownload") ? window : nullptr;
}
QPushButton* downloadButton(const char* name) {
    QWidget* window = downloadWindow();
    return window == nullptr ? nullptr : window->findChild<QPushButton*>(QLatin1String(name));
}
QString downloadText() {
    QWidget* window = downloadWindow();
    return window == nullptr ? QString() : window->findChild<QLabel*>(QStringLiteral("lblText"))->text();
}

void pressUpdate(Journey& journey, const UpdateWorld& world) {
    journey.then(
        "the button",
        [&world] {
            return world.program->window().isActiveWindow() && world.widget("cmdUpdate")->isVisible();
        },
        [&world] { click(world.widget("cmdUpdate")); });
}

void answerBox(Journey& journey, const QString& contains, QMessageBox::StandardButton button) {
    journey.then(
        "the box about " + contains.toStdString(),
        [contains, button] {
            return openBox() != nullptr && openBox()->isActiveWindow() &&
                   openBox()->text().contains(contains) && openBox()->button(button) != nullptr &&
                   openBox()->button(button)->isEnabled();
        },
        [contains, button] {
            Journey::takePicture("update-" + contains.section(' ', 0, 0));
            click(openBox()->button(button));
        });
    journey.then(
        "the box's end", [contains] { return openBox() == nullptr || !openBox()->text().contains(contains); },
        nullptr);
}

void pressInDownload(Journey& journey, const char* button, const QString& picture) {
    journey.then(
        std::string("the download window's ") + button,
        [button] {
            const QPushButton* shown = downloadButton(button);
            return shown != nullptr && shown->isEnabled() && downloadWindow()->isActiveWindow();
        },
        [button, picture] {
            Journey::takePicture(picture);
            click(downloadButton(button));
        });
}

TEST(UpdateJourney, remembersADeclinedOffer) {
    UpdateWorld world;
    world.offerInstaller();
    world.startAsking(world.address);
    Journey journey;
    pressUpdate(journey, world);
    answerBox(journey, "1.3.0", QMessageBox::No);
    journey.then(
        "the status", [&] { return world.form().sbStatus.panel() == "Cancelled"; }, nullptr);
    journey.run();
    EXPECT_TRUE(world.settings().contains("NoCheck=1"));
    EXPECT_FALSE(world.exists("mark"));
}

TEST(UpdateJourney, installsWhatTheMakerHasSigned) {
    UpdateWorld world;
    world.offerInstaller();
    world.startAsking(world.address);
    Journey journey;
    pressUpdate(journey, world);
    answerBox(journey, "1.3.0", QMessageBox::Yes);
    pressInDownload(journey, "cmdStart", "download-ready");
    journey.then(
        "the complete download",
        [] {
            return downloadButton("cmdCancel") != nullptr &&
                   downloadButton("cmdCancel")->text() == "&Install";
        },
        nullptr);
    pressInDownload(journey, "cmdCancel", "download-complete");
    journey.then(
        "the program's end", [&] { return world.form().exitConfirmed; }, nullptr);
    journey.run();
    for (int i = 0; i < 100 && !world.exists("mark"); ++i)
        QThread::msleep(50);
    EXPECT_TRUE(world.exists("mark")) << "the installer has run";
    EXPECT_FALSE(world.form().window.visible());
}

TEST(UpdateJourney, refusesATamperedInstaller) {
    UpdateWorld world;
    world.offerInstaller();
    QFile installer(world.path("maker/setup"));
    ASSERT_TRUE(installer.open(QIODevice::ReadWrite));
    installer.seek(installer.size() - 1);
    installer.write("!");
    installer.close();
    world.startAsking(world.address);
    Journey journey;
    pressUpdate(journey, world);
    answerBox(journey, "1.3.0", QMessageBox::Yes);
    pressInDownload(journey, "cmdStart", "");
    journey.then(
        "the refusal", [] { return downloadText().contains("the file that was signed"); },
        [] { Journey::takePicture("download-refused"); });
    pressInDownload(journey, "cmdCancel", "");
    journey.then(
        "the window's end", [] { return downloadWindow() == nullptr; }, nullptr);
    journey.run();
    EXPECT_EQ(QStringList(), world.downloads());
    EXPECT_FALSE(world.exists("mark"));
    EXPECT_FALSE(world.form().exitConfirmed);
}

TEST(UpdateJourney, leavesNothingOfACancelledDownload) {
    UpdateWorld world;
    world.makeFile("maker/setup", QByteArray(204800, 'x'));
    world.maker({"sign", "--secret", world.path("secret"), "--version", "1.3.0", world.path("maker/setup")});
    QFile statement(world.path("maker/setup.sig"));
    ASSERT_TRUE(statement.open(QIODevice::ReadOnly));
    ScriptedServer slow;
    slow.scripts["/setup.sig"] = {httpAnswer(statement.readAll().toStdString())};
    slow.scripts["/download/brovinupdate.php?myid=brovin&myver=1.2.3"] = {
        httpAnswer("Version:1,3,0," + slow.url("/setup") + ",Faster,200")};
    slow.scripts["/setup"] = {"HTTP/1.1 200 OK\r\nContent-Length: 204800\r\n\r\n" + std::string(102400, 'x'),
                              ScriptedServer::Then::Drip};
    world.startAsking(slow.url());
    Journey journey;
    pressUpdate(journey, world);
    answerBox(journey, "1.3.0", QMessageBox::Yes);
    pressInDownload(journey, "cmdStart", "");
    journey.then(
        "half of it",
        [] { return downloadText().contains("of 200 KB") && !downloadText().startsWith("0 KB"); },
        [&] {
            Journey::takePicture("download-half");
            EXPECT_EQ(1, world.downloads().size());
            click(downloadButton("cmdCancel"));
        });
    answerBox(journey, "Stop", QMessageBox::No);
    pressInDownload(journey, "cmdCancel", "");
    answerBox(journey, "Stop", QMessageBox::Yes);
    journey.then(
        "the window's end", [] { return downloadWindow() == nullptr && openBox() == nullptr; }, nullptr);
    journey.run();
    EXPECT_EQ(QStringList(), world.downloads());
    EXPECT_EQ("Cancelled", world.form().sbStatus.panel());
}

TEST(UpdateJourney, leadsToThePageWithoutAKey) {
    UpdateWorld world;
    world.offerInstaller();
    world.key.clear();
    world.startAsking(world.address);
    Journey journey;
    pressUpdate(journey, world);
    answerBox(journey, "1.3.0", QMessageBox::Yes);
    pressInDownload(journey, "cmdCancel", "download-by-hand");
    journey.then(
        "the window's end", [] { return downloadWindow() == nullptr; }, nullptr);
    journey.run();
    EXPECT_EQ("Cancelled", world.form().sbStatus.panel());
    EXPECT_EQ(QStringList(), world.downloads());
}

TEST(UpdateJourney, answersAndEndsWhileTheServerIsSilent) {
    UpdateWorld world;
    ScriptedServer silent;
    silent.scripts["/download/brovinupdate.php?myid=brovin&myver=1.2.3"] = {"", ScriptedServer::Then::Hang};
    world.startAsking(silent.url());
    Journey journey;
    pressUpdate(journey, world);
    journey.then(
        "the question to the server",
        [&world] { return !world.form().Timer1.enabled() && world.widget("imgTabs3")->isVisible(); },
        [&world] { click(world.widget("imgTabs3")); });
    journey.then(
        "another page", [&world] { return world.form().picTab[3].visible(); },
        [&world] { click(world.widget("cmdExit")); });
    answerBox(journey, "", QMessageBox::Yes);
    journey.then(
        "the program's end", [&world] { return !world.form().window.visible(); }, nullptr);
    journey.run();
    EXPECT_EQ(nullptr, openBox());
}

TEST(UpdateJourney, takesALanguagePackInTheRunningWindow) {
    UpdateWorld world;
    QFile shipped(QStringLiteral(BROVIN_ASSETS "/default.blp"));
    ASSERT_TRUE(shipped.open(QIODevice::ReadOnly));
    world.makeFile("maker/default.blp", "langversion=99.5\n" + shipped.readAll() +
                                            "\nlangversion=99.5\nlblcmdUpdate=&Fresh words\n");
    world.maker({"sign", "--secret", world.path("secret"), world.path("maker/default.blp")});
    world.startAsking(world.address);
    Journey journey;
    pressUpdate(journey, world);
    answerBox(journey, "99.5", QMessageBox::Yes);
    answerBox(journey, "in its place", QMessageBox::Ok);
    journey.then(
        "the new words",
        [&] {
            return qobject_cast<QPushButton*>(world.widget("cmdUpdate"))->text() ==
                   QLatin1String("&Fresh words");
        },
        [] { Journey::takePicture("language-replaced"); });
    journey.run();
    EXPECT_TRUE(world.exists("data/default.blp"));
    EXPECT_NE(std::string::npos, world.form().lstLang.selectedText().find("v99.5"));
}

} // namespace
} // namespace brovin::tests
