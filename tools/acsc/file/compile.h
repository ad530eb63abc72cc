#pragma once

#include "acsc/problems.h"
#include "acsc/sources/character_source.h"
#include "character/character_data.h"

namespace brovin::acsc {

/// The character that the source describes. With problems the result is good for nothing.
[[nodiscard]] character::CharacterData compileCharacter(const CharacterSource& source, Problems& problems);

} // namespace brovin::acsc
