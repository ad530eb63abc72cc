// Records the moving picture of the README: Peedy comes and says hello, on a real desktop, as a series of
// pictures. tools/demo/record makes one of them. Usage: brovin_record FILE.acs FOLDER

#include "desktop/character/desktop_character_service.h"

#include <QApplication>
#include <QPalette>
#include <QPixmap>
#include <QScreen>
#include <QTemporaryDir>
#include <QTimer>
#include <QWidget>

#include <cstdio>

namespace {

constexpr QRect kRecorded(60, 100, 224, 190); ///< of the screen
constexpr int kStep = 80;                     ///< ms, as long as most frames of the character stay
constexpr int kPictures = 140;
constexpr int kUntilTheDeskIsThere = 12; ///< steps
constexpr int kUntilItIsThere = 53;      ///< what waits would make it hurry

} // namespace

int main(int argc, char** argv) {
    using namespace brovin;
    if (argc != 3)
        return 2;
    const QApplication application(argc, argv);
    const QTemporaryDir folder;
    QFile::copy(QString::fromLocal8Bit(argv[1]), folder.filePath("peedy.acs"));
    QWidget desk; // of one colour, whatever is behind it
    desk.setPalette(QColor(0xe4, 0xeb, 0xf2));
    desk.setGeometry(kRecorded.adjusted(-40, -30, 400, 300));
    desk.show();
    desktop::DesktopCharacterService service(
        {{folder.path().toStdString()}, desktop::silentAudio, [] { return false; }});
    if (!service.load("peedy", "peedy.acs"))
        return 1;
    const platform::Character& peedy = *service.character("peedy");
    peedy.place.put(kRecorded.left() + 20, kRecorded.bottom() - 135);
    int taken = -kUntilTheDeskIsThere;
    QTimer camera;
    QObject::connect(&camera, &QTimer::timeout, [&] {
        if (taken == 0)
            peedy.requests.show();
        if (taken == kUntilItIsThere) {
            peedy.requests.play("Wave");
            peedy.requests.speak("Here I am, Your Radiance! You may stop crying.");
        }
        const int number = taken++;
        if (number < 0)
            return;
        const QPixmap picture = QGuiApplication::primaryScreen()->grabWindow(
            0, kRecorded.x(), kRecorded.y(), kRecorded.width(), kRecorded.height());
        if (!picture.save(QString::asprintf("%s/%03d.png", argv[2], number)))
            QApplication::exit(1);
        else if (taken == kPictures)
            QApplication::exit(0);
    });
    camera.start(kStep);
    return QApplication::exec();
}
