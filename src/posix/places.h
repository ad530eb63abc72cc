#pragma once

#include <optional>
#include <string>

namespace brovin::posix {

/// What was deleted day by day, in the user's own part of the program's folder.
inline constexpr const char* kScoreFile = "/score.db";

/// Where this user's files of the program are (XDG Base Directory Specification).
struct Places {
    std::string settingsFile;
    std::string settingsFolder;
    std::string autostartFolder;
    std::string runningLock;     ///< held by the copy that runs with these settings; of this machine alone
    std::string installedFolder; ///< the program's folder as it was installed
    std::string ownFolder;       ///< the user's own part of it
};

/// `programFolder` replaces both parts of the program's folder; empty: the usual ones. nullopt: neither the
/// environment nor the system's list of users tells where this user's files are.
[[nodiscard]] std::optional<Places> findPlaces(const std::string& programFolder);

/// The user's trash on the disk of the home folder; empty: the environment names none.
[[nodiscard]] std::string homeTrashFolder();

/// The user's home; "": there is none.
[[nodiscard]] std::string homeFolder();

/// What the user starts, "brovin", whichever of its executables runs.
[[nodiscard]] std::string programFile();

/// The executable with the windows; empty: it is not installed.
[[nodiscard]] std::string windowProgramFile();

/// A module that is installed with the program, by its name; the name alone, for the loader to find, when it
/// is not beside it.
[[nodiscard]] std::string moduleFile(const std::string& name);

/// The path from the root that names what `path` names from here. It is kept as the user wrote it, except
/// that
/// "..", which means what the system makes of it, leads to the path without links.
[[nodiscard]] std::string absolutePath(const std::string& path);

} // namespace brovin::posix
