#pragma once

#include "character/character_data.h"

#include <cstdint>
#include <vector>

namespace brovin::character {

/// Makes a character up: every kind of record, with few or many items, and values from the ends of their
/// ranges more often than chance would have it. The same seed makes the same character.
[[nodiscard]] CharacterData randomCharacter(std::uint32_t seed);

/// Bytes such as images have: runs, repetitions and noise.
[[nodiscard]] std::vector<std::uint8_t> randomPixels(std::uint32_t seed, std::size_t count);

} // namespace brovin::character
