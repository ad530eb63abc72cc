#pragma once

#include "character/character_data.h"
#include "character_source.h"
#include "problems.h"

namespace brovin::acsc {

/// The character that the source describes. With problems the result is good for nothing.
[[nodiscard]] character::CharacterData compileCharacter(const CharacterSource& source, Problems& problems);

} // namespace brovin::acsc
