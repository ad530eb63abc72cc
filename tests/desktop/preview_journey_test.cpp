// What the next scan would delete, looked at, chosen from and deleted by real clicks; and the Keep List.

#include "desktop/desktop_world.h"
#include "desktop/journey.h"
#include "desktop/real_input.h"

#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QTableView>
#include <QTest>

#include <algorithm>
#include <ctime>
#include <iostream>
#include <map>

namespace brovin::tests {
namespace {

/// A shared disk with clutter, which is watched, and the window shown.
struct PreviewWorld : DesktopWorld {
    PreviewWorld() {
        for (const char* file : {"Share/Photos/Thumbs.db", "Share/Music/Thumbs.db", "Share/Music/._song"})
            makeFile(file, QByteArray(5000, 'x'));
        makeFile("config/Brovin/Brovin.conf", "[Settings]\n[filelist.txt]\nNumber=1\nEntry1=thumbs.db\n"
                                              "[foldlist.txt]\nNumber=1\nEntry1=" +
                                                  path("Share").toLower().toUtf8() +
                                                  "\nPath1=" + path("Share").toUtf8() + "\n");
        start();
        form().mPopRestore.click();
    }

    [[nodiscard]] QTableView* table() const { return qobject_cast<QTableView*>(widget("tblFound")); }
    [[nodiscard]] bool shows(int rows) const {
        return table() != nullptr && table()->window()->isActiveWindow() &&
               widget("cmdSearchAgain")->isEnabled() && table()->model()->rowCount() == rows;
    }
    /// The line with this text in its name or folder.
    [[nodiscard]] QModelIndex line(const QString& text) const {
        for (int row = 0; row < table()->model()->rowCount(); ++row)
            for (const int column : {0, 1})
                if (table()->model()->index(row, column).data().toString().contains(text))
                    return table()->model()->index(row, 0);
        return {};
    }
    [[nodiscard]] QPoint placeOf(const QModelIndex& index, int x) const {
        const QRect cell = table()->visualRect(index);
        return table()->viewport()->mapToGlobal(QPoint(cell.left() + x, cell.center().y()));
    }
    [[nodiscard]] bool ticked(const QString& text) const {
        return line(text).data(Qt::CheckStateRole).toInt() == Qt::Checked;
    }
};

/// Waits for the window and presses "Preview..."; goes on when `rows` lines are there.
void openPreview(Journey& journey, const PreviewWorld& world, int rows) {
    journey.then(
        "the window", [&world] { return world.program->window().isActiveWindow(); },
        [&world] { click(world.widget("cmdPreview")); });
    journey.then(
        "what would go", [&world, rows] { return world.shows(rows); }, nullptr);
}

TEST(PreviewJourney, deletesWhatIsTickedAndNothingElse) {
    const PreviewWorld world;
    Journey journey;
    openPreview(journey, world, 3);
    journey.then(
        "its box", [&world] { return world.ticked("/Photos/"); },
        [&world] {
            Journey::takePicture("preview");
            EXPECT_TRUE(world.exists("Share/Photos/Thumbs.db")) << "looking deletes nothing";
            const int height = QApplication::primaryScreen()->size().height();
            for (const char* name : {"cmdKeepThis", "lblFound"}) {
                const QWidget* shown = world.widget(name);
                const QRect place(shown->mapToGlobal(QPoint(0, 0)), shown->size());
                EXPECT_FALSE(place.intersects({0, height - 147, 128, 128})) << "below a character: " << name;
            }
            clickAt(world.placeOf(world.line("/Photos/"), 12));
        });
    journey.then(
        "the box cleared", [&world] { return !world.ticked("/Photos/"); },
        [&world] { clickAt(world.placeOf(world.line("._song"), 60)); });
    journey.then(
        "the line chosen", [&world] { return world.widget("cmdKeepThis")->isEnabled(); },
        [&world] {
            EXPECT_NE("", qobject_cast<QLabel*>(world.widget("lblLost"))->text().toStdString());
            click(world.widget("txtFilter"));
        });
    journey.then(
        "the filter", [&world] { return world.widget("txtFilter")->hasFocus(); },
        [] { typeText("music", false); });
    journey.then(
        "what fits", // when all is typed: a part of it leaves the same lines
        [&world] {
            return qobject_cast<QLineEdit*>(world.widget("txtFilter"))->text() == "music" && world.shows(2);
        },
        [] {
            pressKeys({"ctrl+a", "BackSpace"});
        });
    journey.then(
        "all lines again", [&world] { return world.shows(3); },
        [&world] { click(world.widget("cmdDeleteThese")); });
    journey.then(
        "the deletion", [&world] { return !world.exists("Share/Music/._song") && world.shows(3); },
        [] {
            letPass(100);
            Journey::takePicture("preview-deleted");
            pressKeys({"Escape"});
        });
    journey.then(
        "the preview's end", [&world] { return world.table() == nullptr; }, nullptr);
    journey.run();
    EXPECT_TRUE(world.exists("Share/Photos/Thumbs.db")) << "its tick was taken away";
    EXPECT_FALSE(world.exists("Share/Music/Thumbs.db"));
    EXPECT_TRUE(world.program->window().windowTitle().contains(" - 2 (8 KB) "));
    EXPECT_TRUE(world.logLines().join("|").contains("|Items deleted: 2 ("));
}

TEST(PreviewJourney, keepsANameThatTheScanThenSpares) {
    const PreviewWorld world;
    Journey journey;
    openPreview(journey, world, 3);
    journey.then(
        "a line", [&world] { return world.line("/Music/").isValid(); },
        [&world] { clickAt(world.placeOf(world.line("/Photos/"), 60), 3); });
    journey.then(
        "its menu", [] { return QApplication::activePopupWidget() != nullptr; },
        [] {
            Journey::takePicture("preview-menu");
            pressKeys({"Down", "Down", "Return"});
        });
    journey.then(
        "the name on the Keep List", [&world] { return world.form().lstKeep.count() == 1; },
        [] { pressKeys({"Escape"}); });
    journey.then(
        "the window", [&world] { return world.program->window().isActiveWindow(); },
        [&world] { click(world.widget("cmdNuke")); });
    journey.then(
        "the result",
        [] {
            const QWidget* const box = QApplication::activeModalWidget();
            return box != nullptr && box->isActiveWindow(); // where it stays, so that a click hits
        },
        [&world] {
            EXPECT_TRUE(world.exists("Share/Photos/Thumbs.db") && world.exists("Share/Music/Thumbs.db"));
            EXPECT_FALSE(world.exists("Share/Music/._song"));
            click(qobject_cast<QMessageBox*>(QApplication::activeModalWidget())->button(QMessageBox::Ok));
        });
    journey.then(
        "the window again", [&world] { return world.program->window().isActiveWindow(); },
        [&world] { click(world.widget("imgTabs1")); });
    journey.then(
        "the page", [&world] { return world.widget("lstKeep")->isVisible(); },
        [&world] {
            letPass(100);
            Journey::takePicture("keep-list");
            const auto* list = qobject_cast<QListWidget*>(world.widget("lstKeep"));
            clickAt(list->viewport()->mapToGlobal(list->visualItemRect(list->item(0)).center()));
        });
    journey.then(
        "the button", [&world] { return world.widget("cmdRemoveKeep")->isEnabled(); },
        [&world] { click(world.widget("cmdRemoveKeep")); });
    journey.then(
        "the question",
        [] {
            const auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            return box != nullptr && box->isActiveWindow() && box->buttons().front()->isEnabled();
        },
        [] {
            click(qobject_cast<QMessageBox*>(QApplication::activeModalWidget())->button(QMessageBox::Yes));
        });
    journey.then(
        "the empty list", [&world] { return world.form().lstKeep.count() == 0; }, nullptr);
    journey.run();
}

/// Processor time of this thread in milliseconds: the machine may be busy with something else.
double busyMilliseconds() {
    timespec spent{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &spent);
    return static_cast<double>(spent.tv_sec) * 1000 + static_cast<double>(spent.tv_nsec) / 1e6;
}

// BROVIN_PREVIEW_ROWS=1000000 makes it the whole number that the window is meant for.
TEST(PreviewJourney, answersWhileItSearchesSortsAndFilters) {
    const int rows = qEnvironmentVariableIsSet("BROVIN_PREVIEW_ROWS")
                         ? qEnvironmentVariableIntValue("BROVIN_PREVIEW_ROWS")
                         : 4000;
    const PreviewWorld world;
    for (int i = 0; i < rows; ++i) // half of them in one folder, and in no order
        world.makeFile(QString("Share/%1/._%2").arg(std::max(i - rows / 2, 0) / 2500).arg(i * 7919LL % rows),
                       {});
    double before = busyMilliseconds();
    std::map<std::string, double> longest; // milliseconds, by what was done
    std::string doing;
    QTimer beat;
    QObject::connect(&beat, &QTimer::timeout, [&] {
        const double now = busyMilliseconds();
        longest[doing] = std::max(longest[doing], now - before);
        before = now;
    });
    beat.start(1);
    const auto act = [&](const char* what, const std::function<void()>& action) {
        doing = what;
        action();
        letPass(60);
    };
    const auto press = [&world](const char* button) {
        QTest::mouseClick(world.widget(button), Qt::LeftButton);
    };
    const auto key = [&world](const char* at, Qt::Key pressed, Qt::KeyboardModifiers with = {}) {
        QTest::keyClick(world.widget(at), pressed, with);
    };
    act("search", [&] { press("cmdPreview"); });
    ASSERT_NE(nullptr, world.table());
    EXPECT_EQ(std::min(rows + 3, 1'000'000), world.table()->model()->rowCount());
    const char* const columns[] = {"sort by name", "by folder", "by why", "by size", "by age"};
    for (const int column : {1, 2, 3, 4, 0})
        act(columns[column], [&] {
            const QHeaderView* header = world.table()->horizontalHeader();
            QTest::mouseClick(header->viewport(), Qt::LeftButton, {},
                              {header->sectionViewportPosition(column) + 20, 8});
        });
    act("tick none", [&] { press("cmdTickNone"); });
    act("filter", [&] { QTest::keyClicks(world.widget("txtFilter"), "._99"); });
    EXPECT_GT(rows, world.table()->model()->rowCount());
    const auto clear = [&] {
        key("txtFilter", Qt::Key_A, Qt::ControlModifier);
        key("txtFilter", Qt::Key_Backspace);
    };
    act("all again", clear);
    act("filter a part of the folder", [&] { QTest::keyClicks(world.widget("txtFilter"), "share/1"); });
    act("all once more", clear);
    EXPECT_EQ(std::min(rows + 3, 1'000'000), world.table()->model()->rowCount());
    act("end", [&] { key("tblFound", Qt::Key_End, Qt::ControlModifier); });
    act("tick one", [&] { key("tblFound", Qt::Key_Space); });
    act("group by folder", [&] { key("cmbGroup", Qt::Key_Down); });
    act("home", [&] { key("tblFound", Qt::Key_Home, Qt::ControlModifier); });
    act("tick a folder", [&] { key("tblFound", Qt::Key_Space); });
    act("group by name", [&] { key("cmbGroup", Qt::Key_Down); });
    act("tick all", [&] { press("cmdTickAll"); });
    act("keep a folder", [&] {
        key("tblFound", Qt::Key_Down);
        press("cmdKeepFolder");
    });
    QTimer::singleShot(300, [&] { press("cmdStop"); });
    act("delete these", [&] { press("cmdDeleteThese"); });
    act("close", [&] { press("cmdClose"); });
    beat.stop();
    for (const auto& [what, milliseconds] : longest) {
        EXPECT_LE(milliseconds, 50) << "at: " << what;
        if (rows > 4000)
            std::cerr << "| " << what << " | " << milliseconds << " ms |\n";
    }
}

} // namespace
} // namespace brovin::tests
