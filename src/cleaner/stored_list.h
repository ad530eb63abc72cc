#pragma once

#include "platform/letters.h"
#include "settings/settings.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace brovin::cleaner {

/// The sections of the settings store in which the lists are kept. No files have these names.
inline constexpr std::string_view kNastyFilesSection = "filelist.txt";
inline constexpr std::string_view kWatchedFoldersSection = "foldlist.txt";
inline constexpr std::string_view kKeepSection = "keeplist.txt";

/// How many entries a list can hold.
inline constexpr std::size_t kMostEntries = 32767;

struct ListEntry {
    std::string text;       ///< in lower case
    std::string path;       ///< the true spelling of a folder; empty: not known, or no folder
    std::string identity{}; ///< what the folder was when it was added; empty: not known
    std::string refused{};  ///< what stood in its place later and was not the right one; empty: nothing
};

/// Reads "Number", then "Entry1", "Path1", "Known1" and "Refused1" and so on. Empty entries are dropped, and
/// so is a path that does not spell its entry.
[[nodiscard]] std::vector<ListEntry> loadList(const settings::Settings& settings, std::string_view section,
                                              const platform::Letters& letters);

enum class WithPaths : bool { No, Yes };

/// Stores the entries, lower-cased, by one write. Keys beyond their number stay and count for nothing. False:
/// refused, nothing was stored.
bool saveList(settings::Settings& settings, std::string_view section, const std::vector<ListEntry>& entries,
              WithPaths withPaths, const platform::Letters& letters);

} // namespace brovin::cleaner
