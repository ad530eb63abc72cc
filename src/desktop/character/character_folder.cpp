#include "desktop/character/character_folder.h"

#include "character/acs_limits.h"
#include "character/acs_reader.h"
#include "posix/unicode_case.h"

#include <algorithm>
#include <map>
#include <string_view>
#include <utility>

namespace brovin::desktop {
namespace {
constexpr std::string_view kEnding = ".acs";
}

CharacterFolder::CharacterFolder(const std::vector<std::string>& paths) {
    for (const std::string& path : paths)
        folders_.emplace_back(posix::ProgramFolderPaths{path, path});
}

std::vector<std::string> CharacterFolder::files() {
    std::map<std::string, std::string> byLowerCase; // which is sorted as a user expects
    for (posix::DiskProgramFolder& folder : folders_)
        for (std::string& name : folder.list("")) {
            std::string lower = posix::lowerCase(name);
            if (lower.ends_with(kEnding))
                byLowerCase.emplace(std::move(lower), std::move(name));
        }
    std::vector<std::string> names;
    names.reserve(byLowerCase.size());
    for (auto& [lower, name] : byLowerCase)
        names.push_back(std::move(name));
    return names;
}

std::optional<std::vector<std::uint8_t>> CharacterFolder::read(const std::string& name) {
    const std::string wanted = posix::lowerCase(name);
    for (posix::DiskProgramFolder& folder : folders_) {
        const std::vector<std::string> names = folder.list("");
        auto found = std::find(names.begin(), names.end(), name);
        if (found == names.end())
            found = std::find_if(names.begin(), names.end(), [&wanted](const std::string& candidate) {
                return posix::lowerCase(candidate) == wanted;
            });
        if (found == names.end())
            continue;
        if (const auto content = folder.read(*found, character::kMostFileBytes))
            return std::vector<std::uint8_t>(content->begin(), content->end());
        return std::nullopt;
    }
    return std::nullopt;
}

character::LoadResult<character::CharacterData> CharacterFolder::load(const std::string& name) {
    auto content = read(name);
    if (!content)
        return character::LoadError{character::LoadProblem::Missing, "The file", "cannot be read", 0};
    return character::readCharacter(character::SharedBytes(std::move(*content)));
}

} // namespace brovin::desktop
