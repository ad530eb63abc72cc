#include "desktop/choose_platform.h"

#include <QByteArray>
#include <QtGlobal>

namespace brovin::desktop {

bool choosePlatform() {
    const bool asked = qEnvironmentVariableIsSet("QT_QPA_PLATFORM");
    if (qEnvironmentVariableIsEmpty("DISPLAY"))
        return asked;
    if (!asked || qgetenv("QT_QPA_PLATFORM").startsWith("wayland"))
        qputenv("QT_QPA_PLATFORM", "xcb");
    return true;
}

} // namespace brovin::desktop
