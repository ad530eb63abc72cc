#pragma once

#include "character/character_data.h"

#include <QString>

namespace brovin::acsc {

/// What a character is and can do, for reading.
[[nodiscard]] QString listing(const character::CharacterData& data);

} // namespace brovin::acsc
