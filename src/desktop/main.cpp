#include "desktop/desktop_program.h"
#include "desktop/places.h"
#include "desktop/qt_regional.h"
#include "desktop/qt_settings_store.h"
#include "desktop/version.h"
#include "headless/command_line.h"
#include "headless/scan_command.h"
#include "posix/disk_program_folder.h"
#include "posix/flock_scan_lock.h"
#include "posix/posix_file_system.h"
#include "posix/standard_random.h"
#include "posix/system_clock.h"
#include "posix/terminal.h"
#include "update/address.h"

#include <QApplication>
#include <QCoreApplication>
#include <QDir>
#include <QFile>

#include <iostream>
#include <optional>
#include <string_view>
#include <vector>

namespace {

using namespace brovin;

const app::ProgramInfo kInfo{"Brovin", kVersionMajor, kVersionMinor, kVersionRevision};

/// Where updates come from: the build's server, or the one of the command line. nullopt: not a safe one.
std::optional<desktop::UpdateSource> updateSource(std::string server) {
    while (server.ends_with('/'))
        server.pop_back();
    if (!update::mayFetch(server, platform::PlainHttp::OnlyFromThisMachine))
        return std::nullopt;
    return desktop::UpdateSource{std::move(server), kUpdateKey};
}

std::string bytesOf(const QString& path) {
    return QFile::encodeName(path).toStdString();
}

int scan(headless::ScanOptions options, const desktop::Places& places) {
    for (std::string& folder : options.folders)
        folder = bytesOf(
            QDir::cleanPath(QDir(QFile::decodeName(QByteArray::fromStdString(folder))).absolutePath()));
    desktop::QtSettingsStore settings(places.settingsFile);
    posix::PosixFileSystem files;
    posix::DiskProgramFolder folder({bytesOf(places.installedFolder), bytesOf(places.ownFolder)});
    posix::FlockScanLock lock(bytesOf(places.settingsFolder));
    const desktop::QtRegional regional;
    const posix::SystemClock clock;
    posix::StandardRandom random;
    random.seed(static_cast<std::uint64_t>(clock.now().time_since_epoch().count()));
    const headless::Console console{std::cin, std::cout, std::cerr, posix::isTerminal(0),
                                    posix::isTerminal(2)};
    return static_cast<int>(headless::scanCommand(
        options, {settings, files, folder, lock, regional, clock, random}, console, kInfo));
}

/// Windows are placed and kept on top by the program itself, which only X11 lets it do: on other desktops it
/// runs through their X server. Qt would end the program without a word where there is no display at all.
bool choosePlatform() {
    if (qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        return true;
    if (qEnvironmentVariableIsEmpty("DISPLAY"))
        return false;
    qputenv("QT_QPA_PLATFORM", "xcb");
    return true;
}

} // namespace

int main(int argc, char** argv) {
    std::ios::sync_with_stdio(false);
    const std::vector<std::string_view> arguments(argv + 1, argv + argc);
    const headless::CommandLine line = headless::parseCommandLine(arguments);
    if (!line.problem.empty()) {
        std::cerr << "brovin: " << line.problem << "\n" << headless::usage();
        return static_cast<int>(headless::ScanStatus::BadUsage);
    }
    if (line.help) {
        std::cout << headless::usage();
        return 0;
    }
    if (line.version) {
        std::cout << kInfo.title << " " << kInfo.major << "." << kInfo.minor << "." << kInfo.revision << "\n";
        return 0;
    }
    QCoreApplication::setApplicationName(QString::fromStdString(kInfo.title));
    QCoreApplication::setApplicationVersion(
        QStringLiteral("%1.%2.%3").arg(kInfo.major).arg(kInfo.minor).arg(kInfo.revision));
    const QString programFolder = QString::fromStdString(line.programFolder);
    if (line.scan) {
        const QCoreApplication application(argc, argv);
        return scan(line.scanOptions, desktop::findPlaces(programFolder));
    }
    const auto updates = updateSource(line.updateServer.empty() ? kUpdateServer : line.updateServer);
    if (!updates) {
        std::cerr << "brovin: --update-server wants an https address, or an http address of this machine\n";
        return static_cast<int>(headless::ScanStatus::BadUsage);
    }
    if (!choosePlatform()) {
        std::cerr << "brovin: there is no display; \"brovin --scan\" works without one\n";
        return 1;
    }
    QApplication application(argc, argv);
    QApplication::setDesktopFileName(QStringLiteral("brovin"));
    desktop::DesktopProgram program(desktop::findPlaces(programFolder), kInfo, *updates);
    return program.start() ? QApplication::exec() : 0;
}
