#pragma once

#include "character/acs_basics.h"
#include "character/byte_writer.h"
#include "character/character_data.h"
#include "character/load_error.h"
#include "character/shared_bytes.h"

#include <span>
#include <vector>

namespace brovin::character {

/// Images and sounds. Nothing is decoded, and nothing is copied out of `file`: each is a part of it. One that
/// is damaged becomes empty; only a list that cannot be read is a failure.
[[nodiscard]] LoadResult<std::vector<EncodedImage>> readImages(const SharedBytes& file, const Block& list);
[[nodiscard]] LoadResult<std::vector<Sound>> readSounds(const SharedBytes& file, const Block& list);

/// Whether bytes begin as a RIFF WAVE file does.
[[nodiscard]] bool isWave(std::span<const std::uint8_t> bytes);

void writeImage(ByteWriter& out, const EncodedImage& image);

/// The list of images, or of sounds, that were written at these places.
void writeMediaList(ByteWriter& out, const std::vector<Locator>& locators);

} // namespace brovin::character
