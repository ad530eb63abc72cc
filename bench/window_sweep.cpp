// A scan in the window: how long it takes, and for how long at most no event gets through.
// Usage: window_sweep PROGRAM-FOLDER FOLDER NAME...   Prints the seconds that the scan took, those in which
// its thread had a processor, and the longest wait of events in milliseconds, all and on a processor. Names
// that nothing has make it a scan that deletes nothing. No character is there. Needs a display.

#include "cleaner/stored_list.h"
#include "desktop/desktop_program.h"
#include "posix/ini_settings_store.h"
#include "posix/unicode_letters.h"
#include "settings/settings.h"
#include "ui/frm_options.h"

#include <QApplication>
#include <QTemporaryDir>
#include <QTimer>
#include <QWidget>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <ctime>
#include <string>
#include <vector>

namespace {

using namespace brovin;
using Clock = std::chrono::steady_clock;

/// What this thread has had of a processor, whatever else the machine is busy with.
double processorMilliseconds() {
    timespec spent{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &spent);
    return static_cast<double>(spent.tv_sec) * 1000 + static_cast<double>(spent.tv_nsec) / 1e6;
}

double millisecondsBetween(Clock::time_point from, Clock::time_point to) {
    return std::chrono::duration<double, std::milli>(to - from).count();
}

posix::Places placesIn(const std::string& scratch, const char* programFolder) {
    posix::Places places;
    places.settingsFolder = scratch + "/config/Brovin";
    places.settingsFile = places.settingsFolder + "/Brovin.conf";
    places.autostartFolder = scratch + "/config/autostart";
    places.runningLock = scratch + "/running.lock";
    places.installedFolder = programFolder;
    places.ownFolder = scratch + "/data";
    return places;
}

/// A folder to watch and the names to delete, as a former run would have left them.
void store(const posix::Places& places, const std::vector<std::string>& folderAndNames) {
    posix::IniSettingsStore file(places.settingsFile);
    settings::Settings settings(file);
    settings.write(settings::setting::kAgent, "0");
    const posix::UnicodeLetters letters;
    const std::string& folder = folderAndNames.front();
    cleaner::saveList(settings, cleaner::kWatchedFoldersSection, {{letters.lowerCase(folder), folder}},
                      cleaner::WithPaths::Yes, letters);
    std::vector<cleaner::ListEntry> names;
    for (std::size_t i = 1; i < folderAndNames.size(); ++i)
        names.push_back({folderAndNames[i], {}});
    cleaner::saveList(settings, cleaner::kNastyFilesSection, names, cleaner::WithPaths::No, letters);
}

} // namespace

int main(int argc, char** argv) {
    if (argc < 4) {
        std::fprintf(stderr, "Usage: window_sweep PROGRAM-FOLDER FOLDER NAME...\n");
        return 2;
    }
    QApplication application(argc, argv);
    const QTemporaryDir scratch;
    const posix::Places places = placesIn(scratch.path().toStdString(), argv[1]);
    store(places, {argv + 2, argv + argc});
    desktop::DesktopProgram program(places, {"Brovin", 1, 2, 3});
    if (!program.start())
        return 1;
    ui::FrmOptions& form = program.form();
    form.chkConfirm.setValue(ui::CheckBox::kOff);

    // The line of the status bar names each folder: until its last change the scan is at work.
    Clock::time_point begin;
    Clock::time_point end;
    Clock::time_point chance; // for events, the last one
    double longest = 0;
    double busyBegin = 0; // and the same times on a processor
    double busyEnd = 0;
    double busyChance = 0;
    double longestBusy = 0;
    bool told = false;
    form.sbStatus.observe([&] {
        if (told || begin == Clock::time_point())
            return;
        end = Clock::now();
        longest = std::max(longest, millisecondsBetween(chance, end));
        busyEnd = processorMilliseconds();
        longestBusy = std::max(longestBusy, busyEnd - busyChance);
    });
    QTimer beat;
    QObject::connect(&beat, &QTimer::timeout, [&] {
        chance = Clock::now();
        busyChance = processorMilliseconds();
    });
    QTimer::singleShot(200, [&] {
        beat.start(0);
        begin = end = chance = Clock::now();
        busyBegin = busyChance = processorMilliseconds();
        form.cmdNuke.click();
        QApplication::quit();
    });
    QTimer watch; // the result is told in a box
    QObject::connect(&watch, &QTimer::timeout, [&told] {
        if (QWidget* const box = QApplication::activeModalWidget()) {
            told = true;
            box->close();
        }
    });
    watch.start(1);
    QApplication::exec();
    std::printf("%.3f %.3f %.1f %.1f\n", millisecondsBetween(begin, end) / 1000, (busyEnd - busyBegin) / 1000,
                longest, longestBusy);
    return 0;
}
