// A demonstration: real clutter in a throw-away folder, settings of its own, and one scan in the real window.
// It ends by itself and tells what was said and what was deleted. Status 1: something of that was missing.

#include "demo_world.h"
#include "desktop/desktop_program.h"
#include "desktop/window/options_window.h"
#include "result_watch.h"
#include "ui/frm_options.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QMessageBox>
#include <QPainter>
#include <QPixmap>
#include <QScreen>
#include <QTemporaryDir>
#include <QTimer>

#include <iostream>
#include <string_view>

namespace {

using namespace brovin;

constexpr int kLook = 1500;      ///< ms to look at the window before the scan
constexpr int kLinger = 2500;    ///< ms to look at the result
constexpr int kPatience = 40000; ///< ms in which the program must have said something

enum class Picture { OwnWindows, WholeScreen };

/// The program's own windows as they lie on the desktop, without anything of the user's.
QPixmap ownWindows() {
    QRect area;
    for (const QWidget* window : QApplication::topLevelWidgets())
        if (window->isVisible())
            area |= window->geometry();
    QPixmap picture(area.size());
    picture.fill(QColor(0x4f, 0x6d, 0x8f));
    QPainter painter(&picture);
    const auto paint = [&](bool overlays) {
        for (QWidget* window : QApplication::topLevelWidgets()) {
            if (!window->isVisible() || window->testAttribute(Qt::WA_TranslucentBackground) != overlays)
                continue;
            const QPoint corner = window->geometry().topLeft() - area.topLeft();
            const QRegion shape = window->mask().isEmpty() ? QRegion(window->rect()) : window->mask();
            painter.setClipRegion(shape.translated(corner));
            painter.drawPixmap(corner, window->grab());
        }
    };
    paint(false);
    paint(true); // the character and its balloon lie above all others
    return picture;
}

/// Presses "Scan NOW" and, when the result has been told, takes a picture of it.
class Demonstration {
public:
    Demonstration(desktop::DesktopProgram& program, const QString& folder, Picture picture)
        : program_(program), folder_(folder), picture_(picture) {
        QObject::connect(&watching_, &QTimer::timeout, [this] { watch(); });
        QObject::connect(&pressing_, &QTimer::timeout, [this] { press(); });
        QObject::connect(&leaving_, &QTimer::timeout, [this] { leave(); });
        pressing_.setSingleShot(true);
        leaving_.setSingleShot(true);
    }

    void begin() {
        program_.form().mPopRestore.click();
        waiting_.start();
        pressing_.start(kLook);
    }

private:
    /// Where the result comes in a box this returns only when the box is closed; the timer goes on meanwhile.
    void press() {
        watching_.start(100);
        program_.window().findChild<QAbstractButton*>(QStringLiteral("cmdNuke"))->click();
        pressed_ = true;
    }

    void watch() {
        const auto said = result_.look(pressed_);
        if (!said && !waiting_.hasExpired(kPatience))
            return;
        watching_.stop();
        complete_ = report(said.value_or(QString()));
        leaving_.start(said ? kLinger : 0);
    }

    void leave() const {
        if (auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget()))
            box->accept();
        QApplication::exit(complete_ ? 0 : 1);
    }

    /// False: something is missing.
    [[nodiscard]] bool report(const QString& said) const {
        const QString file = folder_ + QStringLiteral("/scan.png");
        const QPixmap picture =
            picture_ == Picture::WholeScreen ? QApplication::primaryScreen()->grabWindow(0) : ownWindows();
        const bool pictured = picture.save(file);
        QFile log(folder_ + QStringLiteral("/data/deletions.log"));
        const QByteArray logged =
            log.open(QIODevice::ReadOnly) ? log.readAll().replace("\r\n", "\n") : QByteArray();
        std::cout << "\nThe program says: " << (said.isEmpty() ? "nothing!" : said.toStdString()) << "\n\n"
                  << logged.toStdString()
                  << "\nScreenshot:   " << (pictured ? file.toStdString() : "could not be saved")
                  << "\nDeletion log: " << (logged.isEmpty() ? "is missing" : log.fileName().toStdString())
                  << "\nFolder:       " << folder_.toStdString() << "/Share" << std::endl;
        return !said.isEmpty() && pictured && !logged.isEmpty();
    }

    desktop::DesktopProgram& program_;
    QString folder_;
    Picture picture_;
    QTimer watching_;
    QTimer pressing_;
    QTimer leaving_;
    bool complete_ = false; ///< nothing was missing in the report
    QElapsedTimer waiting_;
    tools::ResultWatch result_;
    bool pressed_ = false;
};

} // namespace

int main(int argc, char** argv) {
    const bool wholeScreen = argc > 1 && std::string_view(argv[1]) == "--whole-screen";
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "xcb");
    const QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Brovin"));

    // A new folder each time: the demonstration deletes nothing but what it has made itself.
    QTemporaryDir scratch(QDir::temp().filePath(QStringLiteral("brovin-demo-XXXXXX")));
    scratch.setAutoRemove(false);
    const QString folder = scratch.path();
    const posix::Places places = tools::makeDemoWorld(folder);
    desktop::DesktopProgram program(places, {"Brovin", 1, 0, 0});
    if (!program.start())
        return 1;
    Demonstration demonstration(program, folder, wholeScreen ? Picture::WholeScreen : Picture::OwnWindows);
    demonstration.begin();
    return QApplication::exec();
}
