#include "cleaner/folder_guard.h"

#include "platform/file_system.h"

#include <algorithm>
#include <string_view>

namespace brovin::cleaner {
namespace {

using language::Text;

bool liesIn(std::string_view path, std::string_view folder) {
    return path.starts_with(folder) &&
           (path.size() == folder.size() || path[folder.size()] == platform::kPathSeparator);
}

} // namespace

FolderRisk folderRisk(const std::string& path, const platform::Landmarks& landmarks) {
    std::string real = landmarks.realPath(path);
    while (real.ends_with(platform::kPathSeparator))
        real.pop_back();
    if (real.empty())
        return FolderRisk::Root;
    const std::string home = landmarks.home();
    if (real == home)
        return FolderRisk::Home;
    const auto homes = landmarks.otherHomes();
    const auto holds = [&real](const std::string& folder) { return liesIn(folder, real); };
    if (std::any_of(homes.begin(), homes.end(), [&real](const auto& other) { return other == real; }))
        return FolderRisk::OthersHome;
    const auto own = landmarks.programFolders();
    const auto inIt = [&real](const std::string& folder) { return liesIn(real, folder); };
    if (std::any_of(own.begin(), own.end(), inIt))
        return FolderRisk::Program;
    const auto system = landmarks.systemFolders();
    // A folder around all homes, or around the system's own, is one of the system's too.
    if (holds(home) || std::any_of(homes.begin(), homes.end(), holds) ||
        std::any_of(system.begin(), system.end(), holds) || std::any_of(system.begin(), system.end(), inIt))
        return FolderRisk::System;
    return landmarks.isDisk(real) ? FolderRisk::Disk : FolderRisk::None;
}

std::optional<language::Text> riskText(FolderRisk risk) {
    switch (risk) {
    case FolderRisk::Root:
        return Text("riskRoot");
    case FolderRisk::Home:
        return Text("riskHome");
    case FolderRisk::OthersHome:
        return Text("riskOthersHome");
    case FolderRisk::System:
        return Text("riskSystem");
    case FolderRisk::Program:
        return Text("riskProgram");
    case FolderRisk::Disk:
        return Text("riskDisk");
    case FolderRisk::None:
        break;
    }
    return std::nullopt;
}

} // namespace brovin::cleaner
