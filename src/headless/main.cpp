#include "headless/command_line.h"
#include "headless/language_command.h"
#include "headless/scan_command.h"
#include "headless/starter_command.h"
#include "platform/standard_random.h"
#include "posix/disk_program_folder.h"
#include "posix/flock_scan_lock.h"
#include "posix/history_module.h"
#include "posix/icu_regional.h"
#include "posix/ini_settings_store.h"
#include "posix/places.h"
#include "posix/posix_file_system.h"
#include "posix/posix_landmarks.h"
#include "posix/stop_signals.h"
#include "posix/system_clock.h"
#include "posix/terminal.h"
#include "posix/unicode_letters.h"
#include "version.h"

#include <unistd.h>

#include <csignal>
#include <iostream>
#include <new>
#include <string>
#include <string_view>
#include <vector>

namespace {

using namespace brovin;
using headless::ExitStatus;

const settings::ProgramInfo kInfo{"Brovin", kVersionMajor, kVersionMinor, kVersionRevision};

ExitStatus scan(headless::ScanOptions options, const std::string& programFolder) {
    const auto places = posix::findPlaces(programFolder);
    if (!places) {
        std::cerr << "brovin: the environment names no home folder: set HOME, or XDG_CONFIG_HOME and "
                     "XDG_DATA_HOME\n";
        return ExitStatus::BadUsage;
    }
    for (std::string& folder : options.folders)
        folder = posix::absolutePath(folder);
    for (std::string& entry : options.keep)
        if (entry.find('/') != std::string::npos)
            entry = posix::absolutePath(entry);
    posix::IniSettingsStore settings(places->settingsFile);
    posix::PosixFileSystem files;
    posix::DiskProgramFolder folder({places->installedFolder, places->ownFolder});
    posix::FlockScanLock lock(places->settingsFolder);
    const posix::IcuRegional regional;
    const posix::UnicodeLetters letters;
    const posix::SystemClock clock;
    posix::HistoryModule history(places->ownFolder + posix::kScoreFile);
    platform::StandardRandom random;
    random.seed(static_cast<std::uint64_t>(clock.now().time_since_epoch().count()));
    const posix::StopSignals signals;
    const posix::PosixLandmarks landmarks(*places);
    const headless::Console console{std::cin,
                                    std::cout,
                                    std::cerr,
                                    posix::isTerminal(STDIN_FILENO),
                                    posix::isTerminal(STDERR_FILENO),
                                    [] { return posix::StopSignals::waitToRead(STDIN_FILENO); }};
    return headless::scanCommand(options,
                                 {settings, files, landmarks, folder, lock, regional, letters, clock, random,
                                  history, settings.damaged(), &posix::StopSignals::caught},
                                 console, kInfo);
}

/// All that is done without a window.
ExitStatus run(const headless::CommandLine& line) {
    // Whoever reads the output may stop listening; what is begun is brought to an orderly end all the same.
    static_cast<void>(std::signal(SIGPIPE, SIG_IGN));
    ExitStatus status = ExitStatus::Done;
    if (line.scan)
        status = scan(line.scanOptions, line.programFolder);
    else if (line.starterNames)
        headless::printStarterNames(std::cout);
    else if (!line.checkLanguage.empty())
        status = headless::checkLanguageCommand(line.checkLanguage, std::cout, std::cerr);
    else if (line.help)
        std::cout << headless::usage();
    else
        std::cout << kInfo.title << " " << kInfo.major << "." << kInfo.minor << "." << kInfo.revision << "\n";
    return std::cout.flush() ? status : ExitStatus::OutputLost;
}

/// Goes on as the program with the windows, which has the same arguments and environment.
ExitStatus becomeWindow(char** argv) {
    const std::string program = posix::windowProgramFile();
    if (!program.empty())
        ::execv(program.c_str(), argv);
    std::cerr
        << "brovin: the window cannot be started: install the package brovin-desktop; \"brovin --scan\" "
           "works without it\n";
    return ExitStatus::NoWindow;
}

} // namespace

/// Where memory runs out nothing is left half done: what was open is closed on the way here.
int main(int argc, char** argv) try {
    std::ios::sync_with_stdio(false);
    const std::vector<std::string_view> arguments(argv + 1, argv + argc);
    const headless::CommandLine line = headless::parseCommandLine(arguments);
    if (!line.problem.empty()) {
        std::cerr << "brovin: " << line.problem << "\n" << headless::usage();
        return static_cast<int>(ExitStatus::BadUsage);
    }
    const bool window =
        !line.scan && !line.starterNames && !line.help && !line.version && line.checkLanguage.empty();
    return static_cast<int>(window ? becomeWindow(argv) : run(line));
} catch (const std::bad_alloc&) {
    constexpr std::string_view kSaid = "brovin: There is not enough memory.\n";
    static_cast<void>(!::write(STDERR_FILENO, kSaid.data(), kSaid.size()));
    return static_cast<int>(ExitStatus::SomeFailed);
}
