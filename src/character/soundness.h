#pragma once

#include "character/character_data.h"

#include <string>

namespace brovin::character {

/// What keeps a character from being sound in the sense of `CharacterData`, or from being the same after it
/// was written and read again; the first thing found, in words for its author: "Animation 3 (Wave), frame 2:
/// there is no image 17". Items are counted from 0. Empty: nothing.
[[nodiscard]] std::string unsoundness(const CharacterData& character);

} // namespace brovin::character
