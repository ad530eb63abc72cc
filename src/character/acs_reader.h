#pragma once

#include "character/character_data.h"
#include "character/load_error.h"
#include "character/shared_bytes.h"

#include <cstdint>
#include <span>
#include <string>

namespace brovin::character {

/// Reads a character file, format 2.x. What a file must have is a sound header, character information of a
/// known version, and the three lists of animations, images and sounds. Whatever else is damaged is left out:
/// an animation has no frames then, an image or a sound is empty, and the character has no names.
///
/// Images and sounds are parts of `file`, which stays in memory as long as the character does. However the
/// parts of a file lie upon one another, the character takes at most 24 times the file's size and 1 MiB
/// beside it, and loading at most 40 times and 1 MiB; an honest one takes less than the file does.
[[nodiscard]] LoadResult<CharacterData> readCharacter(const SharedBytes& file);

/// What a list of characters shows of one.
struct Listing {
    Guid guid;
    std::string name; ///< empty: the file does not say; the file's name without its extension serves
    std::string description;
};

/// The listing for someone of a language, after a look at a few hundred bytes. A file that can be listed may
/// still fail to load.
[[nodiscard]] LoadResult<Listing> readListing(std::span<const std::uint8_t> file, LanguageId language);

} // namespace brovin::character
