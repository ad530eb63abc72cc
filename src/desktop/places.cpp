#include "desktop/places.h"

#include <QCoreApplication>
#include <QDir>
#include <QStandardPaths>

namespace brovin::desktop {

Places findPlaces(const QString& programFolder) {
    Places places;
    const QString config = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    places.settingsFolder = config + QStringLiteral("/Brovin");
    places.settingsFile = places.settingsFolder + QStringLiteral("/Brovin.conf");
    places.autostartFolder = config + QStringLiteral("/autostart");
    const QString runtime = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
    places.runningLock =
        (runtime.isEmpty() ? places.settingsFolder : runtime) + QStringLiteral("/brovin.lock");
    if (!programFolder.isEmpty()) {
        places.installedFolder = places.ownFolder = QDir(programFolder).absolutePath();
        return places;
    }
    places.ownFolder =
        QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + QStringLiteral("/brovin");
    // In a build tree the folder is beside the executable, installed it is beside "bin".
    const QDir beside(QCoreApplication::applicationDirPath());
    const QString name = QStringLiteral("share/brovin");
    places.installedFolder = QDir::cleanPath(
        beside.exists(name) ? beside.filePath(name) : beside.filePath(QStringLiteral("../") + name));
    return places;
}

} // namespace brovin::desktop
