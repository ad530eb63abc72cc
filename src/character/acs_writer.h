#pragma once

#include "character/character_data.h"
#include "platform/result.h"

#include <cstdint>
#include <string>
#include <vector>

namespace brovin::character {

/// Why a character cannot be written, in words for its author.
struct WriteError {
    std::string reason;
};

/// The character's file, format 2.x: the same bytes for the same character on every machine. `readCharacter`
/// gives the same character back, once it is written. Fails for a character that is not sound (see
/// `unsoundness`), or whose file would be larger than a reader takes.
[[nodiscard]] platform::Result<std::vector<std::uint8_t>, WriteError>
writeCharacter(const CharacterData& character);

} // namespace brovin::character
