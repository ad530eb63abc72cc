#pragma once

#include "character/character_data.h"
#include "character/indexed_image.h"

#include <cstdint>
#include <vector>

namespace brovin::bench {

/// A drawn figure of 200 by 200 pixels that moves with `step`: outlines, flat colours, shading and a dithered
/// shadow.
[[nodiscard]] character::IndexedImage drawnFigure(std::uint32_t step);

/// A character of the size of real ones: 1,500 frames, each with an image of its own, in 60 animations; a
/// file of about 5 MB.
[[nodiscard]] character::CharacterData sampleCharacter();

/// Bytes in which no three repeat at a short distance, so that most of the packed form is literals.
[[nodiscard]] std::vector<std::uint8_t> noise(std::size_t count);

/// Bytes made of copies as short as can be, the most work for each byte of output.
[[nodiscard]] std::vector<std::uint8_t> shortCopies(std::size_t count);

} // namespace brovin::bench
