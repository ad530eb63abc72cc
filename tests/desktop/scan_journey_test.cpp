#include "desktop/real_input.h"
#include "desktop/scan_steps.h"

#include <QAbstractItemView>
#include <QImage>
#include <QInputDialog>
#include <QLabel>

namespace brovin::tests {
namespace {

/// A window beside the options window, by its name.
template <class Widget = QWidget>
Widget* recordsPart(const char* window, const char* name) {
    for (QWidget* top : QApplication::topLevelWidgets())
        if (top->objectName() == QLatin1String(window) && top->isVisible() && top->isActiveWindow())
            return top->findChild<Widget*>(QLatin1String(name));
    return nullptr;
}

int rowsOf(const char* window, const char* view) {
    const auto* const shown = recordsPart<QAbstractItemView>(window, view);
    return shown == nullptr ? 0 : shown->model()->rowCount();
}

void saveScore(Journey& journey, const DesktopWorld& world, const char* button, const QString& file) {
    journey.then(
        "the score's window", [] { return rowsOf("scoreWindow", "scoreTable") == 3; },
        [button] { click(recordsPart("scoreWindow", button)); });
    journey.then(
        "the dialog", [] { return shownAndReady(openDialog<QFileDialog>()); },
        [&world, file] { typeText(world.path(file), true); });
    journey.then(
        "the file", [&world, file] { return world.exists(file); }, nullptr);
}

/// From the page Scanning: the score, in both forms of a file, and the log.
void lookAtTheRecords(Journey& journey, const DesktopWorld& world) {
    journey.then(
        "the page", [&world] { return shownAndReady(world.widget("imgTabs2")); },
        [&world] { click(world.widget("imgTabs2")); });
    journey.then(
        "the button of the score", [&world] { return shownAndReady(world.widget("cmdScore")); },
        [&world] { click(world.widget("cmdScore")); });
    journey.then(
        "the week", [] { return rowsOf("scoreWindow", "scoreTable") == 1; },
        [] {
            const auto* model = recordsPart<QAbstractItemView>("scoreWindow", "scoreTable")->model();
            EXPECT_EQ("3", model->index(0, 1).data().toString().toStdString());
            EXPECT_EQ("13", model->index(0, 2).data().toString().toStdString());
            pressKeys({"alt+b", "Down", "Down"});
        });
    journey.then(
        "the names", [] { return rowsOf("scoreWindow", "scoreTable") == 3; },
        [] { Journey::takePicture("score"); });
    saveScore(journey, world, "scoreSaveTable", "score.csv");
    saveScore(journey, world, "scoreSavePicture", "score.png");
    journey.then(
        "the window again", [] { return rowsOf("scoreWindow", "scoreTable") == 3; },
        [] { pressKeys({"Escape"}); });
    journey.then(
        "the button of the log", [&world] { return shownAndReady(world.widget("cmdSearchLog")); },
        [&world] { click(world.widget("cmdSearchLog")); });
    journey.then(
        "the log", [] { return rowsOf("logWindow", "logLines") > 9; }, [] { typeText("SONG", false); });
    journey.then(
        "what was found", [] { return rowsOf("logWindow", "logLines") == 1; },
        [] {
            const auto* model = recordsPart<QAbstractItemView>("logWindow", "logLines")->model();
            EXPECT_TRUE(model->index(0, 0).data().toString().endsWith("/music/._song"));
            Journey::takePicture("log");
            pressKeys({"Escape"});
        });
}

/// From the page Scanning, too.
void throwIntoTheTrash(Journey& journey, const DesktopWorld& world) {
    journey.then(
        "the box of the trash", [&world] { return shownAndReady(world.widget("chkTrash")); },
        [&world] {
            world.makeFile("Share/Photos/Thumbs.DB", "kept");
            click(world.widget("chkTrash"));
        });
    journey.then(
        "its tick", [&world] { return world.form().chkTrash.checked(); },
        [&world] { click(world.widget("imgTabs0")); });
    journey.then(
        "the button", [&world] { return shownAndReady(world.widget("cmdNuke")); },
        [&world] { click(world.widget("cmdNuke")); });
    closeMessage(journey, "trash", [](const QString& /*text*/) {});
}

/// Adds "/" by mistake, reads the question, and does not.
void refuseTheWholeComputer(Journey& journey, const DesktopWorld& world) {
    add<QFileDialog>(journey, world, "cmdAddFolder", "/");
    journey.then(
        "the question",
        [] {
            const auto* box = openDialog<QMessageBox>();
            return shownAndReady(box) && box->button(QMessageBox::No) != nullptr;
        },
        [] {
            EXPECT_TRUE(openDialog<QMessageBox>()->text().contains("the whole computer"));
            Journey::takePicture("guard");
            click(openDialog<QMessageBox>()->button(QMessageBox::No));
        });
    journey.then(
        "its end", [] { return openDialog<QMessageBox>() == nullptr; },
        [&world] { EXPECT_EQ(0, world.form().lstFolders.count()); });
}

TEST(ScanJourney, cleansAFolderByRealClicks) {
    DesktopWorld world;
    world.makeFile("Share/Photos/Thumbs.DB", QByteArray(6000, 'x'));
    world.makeFile("Share/Photos/beach.jpg");
    world.makeFile("Share/Music/._song");
    world.makeFile("Share/Mine/deep/Thumbs.db");
    world.makeFile("Share/Icon\r");
    qputenv("XDG_DATA_HOME", world.path("share").toUtf8());
    world.start();

    Journey journey;
    journey.then(
        "the icon in the tray", [&world] { return !world.program->trayIcon().isEmpty(); },
        [&world] {
            EXPECT_FALSE(world.program->window().isVisible());
            clickAt(world.program->trayIcon().center());
        });
    journey.then(
        "the window", [&world] { return world.program->window().isActiveWindow(); }, nullptr);
    refuseTheWholeComputer(journey, world);
    add<QFileDialog>(journey, world, "cmdAddFolder", world.path("Share"));
    journey.then(
        "the folder in the list", [&world] { return world.form().lstFolders.count() == 1; },
        [&world] { click(world.widget("imgTabs1")); });
    add<QInputDialog>(journey, world, "cmdAddFile", "Thumbs.db");
    add<QInputDialog>(journey, world, "cmdAddKeep", world.path("Share/Mine/")); // "Keep Something..."
    journey.then(
        "the names in the lists",
        [&world] { return world.form().lstFiles.count() == 1 && world.form().lstKeep.count() == 1; },
        [&world] {
            Journey::takePicture("keep-something");
            EXPECT_EQ("thumbs.db", world.form().lstFiles.items()[0].text);
            EXPECT_EQ(world.path("Share/Mine").toLower().toStdString(), world.form().lstKeep.items()[0].text);
            click(world.widget("imgTabs0"));
        });
    journey.then(
        "the button", [&world] { return shownAndReady(world.widget("cmdNuke")); },
        [&world] { click(world.widget("cmdNuke")); });
    closeMessage(journey, "scan-result",
                 [](const QString& text) { EXPECT_TRUE(text.contains("3")) << text.toStdString(); });
    journey.then(
        "the totals in the title",
        [&world] {
            return world.program->window().windowTitle().startsWith(
                "Brovin v1.2.3 - 3 (13 KB) nasties since ");
        },
        [&world] { click(world.widget("cmdNuke")); });
    closeMessage(journey, "second-scan", [](const QString& text) { EXPECT_FALSE(text.contains("3")); });
    lookAtTheRecords(journey, world);
    throwIntoTheTrash(journey, world);
    journey.run();

    QFile csv(world.path("score.csv"));
    ASSERT_TRUE(csv.open(QIODevice::ReadOnly));
    EXPECT_EQ("\"Name\",\"Items\",\"KB\"\r\n\"._*\",1,4\r\n\"icon?\",1,4\r\n\"thumbs.db\",1,5\r\n",
              csv.readAll().toStdString());
    EXPECT_LT(600, QImage(world.path("score.png")).width());
    EXPECT_TRUE(world.exists("share/Trash/files/Thumbs.DB"));

    EXPECT_TRUE(world.exists("Share/Mine/deep/Thumbs.db")) << "on the Keep List";
    EXPECT_FALSE(world.exists("Share/Photos/Thumbs.DB"));
    EXPECT_FALSE(world.exists("Share/Music/._song"));
    EXPECT_FALSE(world.exists("Share/Icon\r"));
    EXPECT_TRUE(world.exists("Share/Photos/beach.jpg"));
    const auto lines = world.logLines();
    ASSERT_LE(9, lines.size());
    const QByteArray root = world.path("Share").toLower().toUtf8();
    EXPECT_EQ(QByteArray(48, '-'), lines[0]);
    EXPECT_TRUE(lines[1].startsWith("Scan begun at "));
    EXPECT_EQ(3, std::count_if(lines.begin(), lines.begin() + 5, [&root](const QByteArray& line) {
                  return line.startsWith("Deleted file ") && line.toLower().contains(root);
              }));
    EXPECT_TRUE(lines[5].contains("1")) << "kept: " << lines[5].toStdString();
    EXPECT_EQ("Items deleted: 3 (13 KB)", lines[6]);
    EXPECT_TRUE(lines[7].startsWith("Scan finished at "));
    EXPECT_EQ(QByteArray(48, '-'), lines[8]) << "the second run";
}

TEST(ScanJourney, asksOnTopOfAWindowThatStaysAlive) {
    DesktopWorld world;
    world.makeFile("Share/Thumbs.db");
    world.makeFile("Share/Sub/Thumbs.db");
    world.start();
    world.form().chkConfirm.setValue(1);
    world.form().lstFiles.setItems({{"thumbs.db", 0}});
    world.form().mPopRestore.click();

    Journey journey;
    scanTheShare(journey, world);
    // Answered the moment it is there, it could not have been read.
    journey.then(
        "the first question's coming", [] { return openDialog<QMessageBox>() != nullptr; },
        [] {
            openDialog<QMessageBox>()->button(QMessageBox::Yes)->click();
            EXPECT_NE(nullptr, openDialog<QMessageBox>());
        });
    journey.then(
        "the first question",
        [] {
            const auto* box = openDialog<QMessageBox>(); // whose buttons wait until it can have been seen
            return shownAndReady(box) && box->buttons().front()->isEnabled();
        },
        [&world] {
            Journey::takePicture("confirm");
            world.program->window().move(40, 60);
            click(openDialog<QMessageBox>()->button(QMessageBox::No));
        });
    journey.then(
        "the second question",
        [] {
            const auto* box = openDialog<QMessageBox>();
            return shownAndReady(box) && box->text().contains("sub") && box->buttons().front()->isEnabled();
        },
        [] { click(openDialog<QMessageBox>()->button(QMessageBox::Yes)); });
    closeMessage(journey, "one-deleted", [](const QString&) {});
    journey.run();
    EXPECT_TRUE(world.exists("Share/Thumbs.db")) << "the answer was No";
    EXPECT_FALSE(world.exists("Share/Sub/Thumbs.db"));
}

TEST(ScanJourney, showsHowFarItIsAndStopsByItsButton) {
    DesktopWorld world;
    constexpr int kFiles = 6000;
    for (int i = 0; i < kFiles; ++i)
        world.makeFile(QString("Share/%1/._%2").arg(i / 500).arg(i));
    world.start();
    const std::string score = world.form().sbScore.panel();
    world.form().lstFiles.setItems({{"thumbs.db", 0}});
    world.form().mPopRestore.click();

    Journey journey;
    scanTheShare(journey, world);
    // The scan stands still while a step acts: it is still there when the click arrives.
    journey.then(
        "the scan", [&world] { return world.widget("cmdStopScan")->isVisible(); }, [] { letPass(300); });
    journey.then(
        "its progress", [&world] { return !world.form().sbProgress.panel().empty(); },
        [&world, score] {
            world.form().imgTabs[7].click();
            letPass(60);
            Journey::takePicture("progress");
            const auto* shown = qobject_cast<QLabel*>(world.widget("sbProgress"));
            EXPECT_TRUE(shown->text().startsWith("Folders: ")) << shown->text().toStdString();
            EXPECT_EQ(score, world.form().sbScore.panel()) << "the page About tells the score";
            input(at(world.widget("cmdStopScan")->mapToGlobal(QPoint(10, 10))) + QStringList{"click", "1"});
        });
    closeMessage(journey, "stopped",
                 [](const QString& text) { EXPECT_TRUE(text.contains("nasties deleted")); });
    journey.run();
    EXPECT_FALSE(world.widget("cmdStopScan")->isVisible());
    const auto lines = world.logLines();
    const auto gone = std::count_if(lines.begin(), lines.end(),
                                    [](const QByteArray& line) { return line.startsWith("Deleted file "); });
    EXPECT_GT(gone, 0);
    EXPECT_LT(gone, kFiles);
    ASSERT_LE(3, lines.size());
    EXPECT_TRUE(lines[lines.size() - 2].startsWith("Scan finished at ")) << "the closing lines";
    EXPECT_TRUE(lines[lines.size() - 3].startsWith("Items deleted: " + QByteArray::number(gone)));
    EXPECT_TRUE(world.program->window().windowTitle().contains(QString(" - %1 (").arg(gone)));
}

} // namespace
} // namespace brovin::tests
