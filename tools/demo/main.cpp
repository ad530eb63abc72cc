// A demonstration: real clutter in a throw-away folder, settings of its own, and one scan in the real window.

#include "desktop/desktop_program.h"
#include "desktop/options_window.h"
#include "desktop/qt_settings_store.h"
#include "ui/frm_options.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QMessageBox>
#include <QPixmap>
#include <QScreen>
#include <QTimer>

#include <iostream>
#include <string>

namespace {

using namespace brovin;

struct Clutter {
    const char* path;
    int bytes;
};
/// What the file managers of other systems leave on a shared disk, and what has to stay.
constexpr Clutter kShare[] = {
    {"Holiday/beach.jpg", 48000},    {"Holiday/Thumbs.db", 23000}, {"Holiday/._beach.jpg", 4096},
    {"Holiday/.DS_Store", 6148},     {"Holiday/Icon\r", 0},        {"Music/song.ogg", 90000},
    {"Music/desktop.ini", 282},      {"Music/.DS_Store", 6148},    {"Music/__MACOSX/._song", 4096},
    {"Letters/to grandma.txt", 900}, {"Letters/~lock", 80},        {"Letters/.Trashes/old.txt", 12000},
};
constexpr const char* kNasty[] = {"thumbs.db", ".ds_store", "desktop.ini", "__macosx", ".trashes"};

void makeShare(const QString& share) {
    for (const Clutter& entry : kShare) {
        const QString path = share + QLatin1Char('/') + QString::fromUtf8(entry.path);
        QDir().mkpath(QFileInfo(path).path());
        QFile file(path);
        if (file.open(QIODevice::WriteOnly))
            file.write(QByteArray(entry.bytes, 'x'));
    }
}

void storeLists(const desktop::Places& places, const QString& share) {
    desktop::QtSettingsStore settings(places.settingsFile);
    std::vector<platform::SettingsEntry> names{{"Number", std::to_string(std::size(kNasty))}};
    for (std::size_t i = 0; i < std::size(kNasty); ++i)
        names.push_back({"Entry" + std::to_string(i + 1), kNasty[i]});
    const platform::SettingsEntry folders[] = {
        {"Number", "1"}, {"Entry1", share.toLower().toStdString()}, {"Path1", share.toStdString()}};
    if (!settings.write("filelist.txt", names) || !settings.write("foldlist.txt", folders))
        std::cerr << "The demonstration's settings could not be written.\n";
}

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
        QObject::connect(&timer_, &QTimer::timeout, [this] { lookForResult(); });
    }

    void begin() {
        program_.form().mPopRestore.click();
        QTimer::singleShot(1500, [this] {
            timer_.start(200);
            program_.window().findChild<QAbstractButton*>(QStringLiteral("cmdNuke"))->click();
        });
    }

private:
    void lookForResult() {
        auto* result = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (result == nullptr)
            return;
        timer_.stop();
        QTimer::singleShot(500, [this, result] { show(result); });
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
    QTimer timer_;
};

} // namespace

int main(int argc, char** argv) {
    const bool leaves = argc > 1 && std::string_view(argv[1]) == "--leave"; // end after the scan
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "xcb");
    const QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Brovin"));

    const QString folder = QDir::current().filePath(QStringLiteral("demo"));
    QDir(folder).removeRecursively();
    desktop::Places places = desktop::findPlaces({});
    places.settingsFolder = folder + QStringLiteral("/config/Brovin");
    places.settingsFile = places.settingsFolder + QStringLiteral("/Brovin.conf");
    places.autostartFolder = folder + QStringLiteral("/config/autostart");
    places.ownFolder = folder + QStringLiteral("/data");
    makeShare(folder + QStringLiteral("/Share"));
    storeLists(places, folder + QStringLiteral("/Share"));

    desktop::DesktopProgram program(places, {"Brovin", 1, 0, 0});
    if (!program.start())
        return 1;
    Demonstration demonstration(program, folder, leaves);
    demonstration.begin();
    return QApplication::exec();
}
