#include "desktop/choose_platform.h"
#include "desktop/desktop_program.h"
#include "desktop/widgets/whole_frames.h"
#include "headless/command_line.h"
#include "headless/exit_status.h"
#include "posix/places.h"
#include "update/address.h"
#include "version.h"

#include <QApplication>

#include <malloc.h>

#include <iostream>
#include <optional>
#include <string_view>
#include <vector>

namespace {

using namespace brovin;
using headless::ExitStatus;

/// Where updates come from: the build's server, or the one of the command line. nullopt: not a safe one.
std::optional<desktop::UpdateSource> updateSource(std::string server) {
    while (server.ends_with('/'))
        server.pop_back();
    if (!update::mayFetch(server, platform::PlainHttp::OnlyFromThisMachine))
        return std::nullopt;
    return desktop::UpdateSource{std::move(server), kUpdateKey};
}

/// The toolkit complains at each start of a missing folder for what runs, although it needs none here, and on
/// Wayland of its own icon, which looks for X11.
void tellUnlessKnown(QtMsgType type, const QMessageLogContext& context, const QString& message) {
    if (!message.startsWith(QLatin1String("QStandardPaths: XDG_RUNTIME_DIR not set")) &&
        !message.contains(QLatin1String("systemTrayWindowChanged")))
        std::cerr << qFormatLogMessage(type, context, message).toStdString() << std::endl;
}

/// What the program that runs already is to do; the one that is started here does it where none runs.
std::optional<platform::Errand> errandOf(const headless::CommandLine& line) {
    if (line.scanNow)
        return platform::Errand::ScanNow;
    if (line.quiet)
        return platform::Errand::SwitchQuiet;
    return std::nullopt;
}

/// A character's file is read whole and let go again. The allocator would learn from the first one to keep so
/// much for the next, which comes perhaps tomorrow.
void giveLargeBlocksBack() {
    constexpr int kLarge = 1024 * 1024;
    ::mallopt(M_MMAP_THRESHOLD, kLarge);
}

int refuse(ExitStatus status, std::string_view why) {
    std::cerr << "brovin: " << why << "\n";
    return static_cast<int>(status);
}

} // namespace

/// The program with its windows. "brovin" starts it with its own arguments, which it has looked through.
int main(int argc, char** argv) {
    giveLargeBlocksBack();
    const std::vector<std::string_view> arguments(argv + 1, argv + argc);
    const headless::CommandLine line = headless::parseCommandLine(arguments);
    if (!line.problem.empty() || line.scan || line.help || line.version)
        return refuse(ExitStatus::BadUsage,
                      "this part of the program only shows the window; start \"brovin\"");
    if (!line.updateServer.empty() && !desktop::Updates::builtIn())
        return refuse(
            ExitStatus::BadUsage,
            "--update-server has no use: this copy asks nobody for updates, its distributor brings them");
    const auto updates = updateSource(line.updateServer.empty() ? kUpdateServer : line.updateServer);
    if (!updates)
        return refuse(ExitStatus::BadUsage,
                      "--update-server wants an https address, or an http address of this machine");
    const auto places = posix::findPlaces(line.programFolder);
    if (!places)
        return refuse(ExitStatus::BadUsage, "the environment names no home folder: set HOME");
    if (!desktop::choosePlatform())
        return refuse(ExitStatus::SomeFailed,
                      "there is no X server that could show windows (on Wayland: XWayland, or the package "
                      "qt6-wayland); \"brovin --scan\" works without");
    const settings::ProgramInfo info{"Brovin", kVersionMajor, kVersionMinor, kVersionRevision};
    QCoreApplication::setApplicationName(QString::fromStdString(info.title));
    QCoreApplication::setApplicationVersion(
        QStringLiteral("%1.%2.%3").arg(info.major).arg(info.minor).arg(info.revision));
    qInstallMessageHandler(tellUnlessKnown);
    QApplication application(argc, argv);
    desktop::WholeFrames::installWhereNeeded();
    QApplication::setDesktopFileName(QStringLiteral("org.kestrelworks.brovin"));
    desktop::DesktopProgram program(*places, info, *updates);
    return program.start(errandOf(line)) ? QApplication::exec() : 0;
}
