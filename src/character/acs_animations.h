#pragma once

#include "character/acs_basics.h"
#include "character/byte_writer.h"
#include "character/character_data.h"
#include "character/load_error.h"
#include "character/name_index.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace brovin::character {

struct AnimationTable {
    std::vector<Animation> animations;
    NameIndex names;
};

/// The animations that `list` names, whose data lie anywhere in `file`. One whose data cannot be read keeps
/// its name and has no frames; only a list that cannot be read is a failure. `imageCount` and `soundCount`
/// are what frames may refer to.
[[nodiscard]] LoadResult<AnimationTable> readAnimations(std::span<const std::uint8_t> file, const Block& list,
                                                        std::size_t imageCount, std::size_t soundCount);

/// The data of one animation of the character.
void writeAnimation(ByteWriter& out, const Animation& animation, const CharacterData& character);

/// The list, with the data of each animation at the locator in the same place.
void writeAnimationList(ByteWriter& out, const std::vector<Animation>& animations,
                        const std::vector<Locator>& locators);

} // namespace brovin::character
