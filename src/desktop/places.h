#pragma once

#include <QString>

namespace brovin::desktop {

/// Where this user's files of the program are (XDG Base Directory Specification).
struct Places {
    QString settingsFile;
    QString settingsFolder;
    QString autostartFolder;
    QString runningLock;     ///< held by the copy that runs; of this machine alone
    QString installedFolder; ///< the program's folder as it was installed
    QString ownFolder;       ///< the user's own part of it
};

/// `programFolder` replaces both parts of the program's folder; empty: the usual ones.
[[nodiscard]] Places findPlaces(const QString& programFolder);

} // namespace brovin::desktop
