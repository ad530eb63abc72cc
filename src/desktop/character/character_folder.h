#pragma once

#include "character/character_data.h"
#include "character/load_error.h"
#include "posix/disk_program_folder.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace brovin::desktop {

/// The character files of the user and those that came with the program. Names have no folders in them, so
/// that no name leads out.
class CharacterFolder {
public:
    /// Paths, the one that wins first.
    explicit CharacterFolder(const std::vector<std::string>& paths);

    /// All names, sorted; of those that are the same without regard to case, the one that `read` reads.
    [[nodiscard]] std::vector<std::string> files();

    /// The file of this name: the exact one, else the first by name that is the same without regard to case.
    /// nullopt: missing, not readable, or larger than a character can be.
    [[nodiscard]] std::optional<std::vector<std::uint8_t>> read(const std::string& name);
    /// The character in it. May be called in another thread than the rest.
    [[nodiscard]] character::LoadResult<character::CharacterData> load(const std::string& name);

private:
    std::vector<posix::DiskProgramFolder> folders_;
};

} // namespace brovin::desktop
