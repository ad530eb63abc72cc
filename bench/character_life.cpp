#include "character_sample.h"

#include "character/acs_writer.h"
#include "desktop/character/desktop_character_service.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QTimer>

#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>

/// What an animated character costs while it plays, speaks, rests and hides, and how long its file takes to
/// load. Needs a display. Usage: character_life [CHARACTER-FILE [ANIMATION [PERCENT...]]]; it also plays in
/// the sizes that are given in percent.
namespace {

using namespace brovin;

constexpr int kSettle = 1500; ///< ms, before each measurement
constexpr int kMeasured = 20'000;

struct Cost {
    double seconds = 0;    ///< of the processor
    long long wakeUps = 0; ///< of the main thread
};

Cost spent() {
    std::ifstream stat("/proc/self/stat");
    std::string text;
    std::getline(stat, text);
    std::istringstream fields(text.substr(text.rfind(')') + 2));
    std::string skipped;
    for (int i = 0; i < 11; ++i)
        fields >> skipped;
    long user = 0;
    long system = 0;
    fields >> user >> system;
    Cost cost{static_cast<double>(user + system) / static_cast<double>(sysconf(_SC_CLK_TCK)), 0};
    std::ifstream status("/proc/self/status");
    const std::string label = "voluntary_ctxt_switches:";
    while (std::getline(status, text))
        if (text.starts_with(label))
            cost.wakeUps = std::stoll(text.substr(label.size()));
    return cost;
}

void letPass(int milliseconds) {
    QTimer::singleShot(milliseconds, [] { QApplication::exit(); }); // quit() would close the windows
    QApplication::exec();
}

void measure(const char* what) {
    letPass(kSettle);
    const Cost before = spent();
    letPass(kMeasured);
    const Cost after = spent();
    constexpr double kSeconds = kMeasured / 1000.0;
    std::printf("%-10s %6.2f %% of a core  %6.1f wake-ups a second\n", what,
                100 * (after.seconds - before.seconds) / kSeconds,
                static_cast<double>(after.wakeUps - before.wakeUps) / kSeconds);
    std::fflush(stdout);
}

bool writeSample(const QString& path) {
    character::CharacterData data = bench::sampleCharacter();
    data.balloon.emplace();
    data.animations.back().frames.back().branches = {{0, 100}}; // so that it plays without end
    const auto bytes = character::writeCharacter(data);
    QFile file(path);
    return bytes && file.open(QIODevice::WriteOnly) &&
           file.write(reinterpret_cast<const char*>(bytes->data()), static_cast<qint64>(bytes->size())) > 0;
}

} // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    const QTemporaryDir folder;
    const QString path = folder.filePath("sample.acs");
    if (argc > 1 ? !QFile::copy(QString::fromLocal8Bit(argv[1]), path) : !writeSample(path))
        return 1;
    desktop::DesktopCharacterService service(
        {{folder.path().toStdString()}, desktop::silentAudio, [] { return false; }});
    QElapsedTimer loading;
    loading.start();
    if (!service.load("sample", "sample.acs"))
        return 1;
    std::printf("loading    %lld bytes in %.1f ms\n", static_cast<long long>(QFile(path).size()),
                static_cast<double>(loading.nsecsElapsed()) / 1e6);
    const platform::Character& character = *service.character("sample");
    platform::CharacterRequests& sample = character.requests;
    measure("not shown");
    character.place.put(300, 300);
    sample.show();
    letPass(kSettle * 3);
    sample.play(argc > 2 ? argv[2] : sample.animationNames().back());
    measure("playing");
    for (int i = 3; i < argc; ++i) {
        service.setSize(std::atoi(argv[i]));
        measure((std::string("at ") + argv[i] + " %").c_str());
    }
    service.setSize(0);
    sample.stop();
    letPass(kSettle * 3);
    std::string words = "one";
    for (int i = 0; i < 90; ++i)
        words += " and two";
    sample.speak(words);
    measure("speaking");
    sample.stop();
    measure("resting");
    sample.hide();
    letPass(kSettle * 3);
    measure("hidden");
    return 0;
}
