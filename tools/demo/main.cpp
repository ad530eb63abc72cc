// A demonstration: real clutter in a throw-away folder, settings of its own, and one scan in the real window.

#include "demo_world.h"
#include "desktop/desktop_program.h"
#include "desktop/options_window.h"
#include "ui/frm_options.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QMessageBox>
#include <QPixmap>
#include <QScreen>
#include <QTemporaryDir>
#include <QTimer>

#include <iostream>
#include <string_view>
#include <utility>

namespace {

using namespace brovin;

void printLog(const QString& path) {
    QFile log(path);
    if (log.open(QIODevice::ReadOnly))
        std::cout << log.readAll().replace("\r\n", "\n").toStdString();
}

/// Presses "Scan NOW", and when the result is on the screen takes a picture of it.
class Demonstration {
public:
    Demonstration(desktop::DesktopProgram& program, const QString& folder, bool leaves)
        : program_(program), folder_(folder), leaves_(leaves) {
        pressing_.setSingleShot(true);
        QObject::connect(&pressing_, &QTimer::timeout, [this] { press(); });
        QObject::connect(&watching_, &QTimer::timeout, [this] { watch(); });
    }

    void begin() {
        program_.form().mPopRestore.click();
        pressing_.start(1500); // a moment to look at the window
    }

private:
    /// Returns only when the result has been closed; meanwhile the other timer goes on.
    void press() {
        watching_.start(300);
        program_.window().findChild<QAbstractButton*>(QStringLiteral("cmdNuke"))->click();
    }

    void watch() {
        auto* result = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (result == nullptr || std::exchange(resultSeen_, result) != result)
            return; // it is still being drawn
        watching_.stop();
        show(result);
    }

    void show(QMessageBox* result) {
        const QString picture = folder_ + QStringLiteral("/scan.png");
        QScreen* screen = QApplication::primaryScreen();
        const QPixmap shot = leaves_ ? screen->grabWindow(0) : program_.window().grab();
        std::cout << "\nThe program says: " << result->text().toStdString() << "\n\n";
        printLog(folder_ + QStringLiteral("/data/deletions.log"));
        std::cout << "\nScreenshot:   " << (shot.save(picture) ? picture.toStdString() : "could not be saved")
                  << "\nDeletion log: " << folder_.toStdString() << "/data/deletions.log"
                  << "\nFolder:       " << folder_.toStdString() << "/Share" << std::endl;
        if (!leaves_)
            return;
        result->accept();
        QApplication::exit(0);
    }

    desktop::DesktopProgram& program_;
    QString folder_;
    bool leaves_;
    QTimer pressing_;
    QTimer watching_;
    const QMessageBox* resultSeen_ = nullptr;
};

} // namespace

int main(int argc, char** argv) {
    const bool leaves = argc > 1 && std::string_view(argv[1]) == "--leave"; // end after the scan
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "xcb");
    const QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Brovin"));

    // A new folder each time: the demonstration deletes nothing but what it has made itself.
    QTemporaryDir scratch(QDir::temp().filePath(QStringLiteral("brovin-demo-XXXXXX")));
    scratch.setAutoRemove(false);
    const QString folder = scratch.path();
    const desktop::Places places = tools::makeDemoWorld(folder);
    desktop::DesktopProgram program(places, {"Brovin", 1, 0, 0});
    if (!program.start())
        return 1;
    Demonstration demonstration(program, folder, leaves);
    demonstration.begin();
    return QApplication::exec();
}
