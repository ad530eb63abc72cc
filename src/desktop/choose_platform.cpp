#include "desktop/choose_platform.h"

#include <QByteArray>
#include <QDir>
#include <QLibraryInfo>
#include <QtGlobal>

namespace brovin::desktop {
namespace {

/// What of the toolkit draws windows on Wayland is a package of its own.
bool drawsOnWayland() {
    const QDir platforms(QLibraryInfo::path(QLibraryInfo::PluginsPath) + QStringLiteral("/platforms"));
    return !platforms.entryList({QStringLiteral("libqwayland*")}).isEmpty();
}

} // namespace

bool choosePlatform() {
    const bool asked = qEnvironmentVariableIsSet("QT_QPA_PLATFORM");
    if (qEnvironmentVariableIsEmpty("DISPLAY")) {
        if (asked || qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") || !drawsOnWayland())
            return asked;
        qputenv("QT_QPA_PLATFORM", "wayland");
        return true;
    }
    if (!asked || qgetenv("QT_QPA_PLATFORM").startsWith("wayland"))
        qputenv("QT_QPA_PLATFORM", "xcb");
    return true;
}

} // namespace brovin::desktop
