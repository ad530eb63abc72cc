#pragma once

#include "character/byte_reader.h"
#include "character/byte_writer.h"
#include "character/character_data.h"

#include <cstdint>

namespace brovin::character {

/// The record of the word balloon, part of which are bits of the character's `flags`. A balloon without lines
/// or without characters in a line is a failure; other values out of their range are brought into it.
[[nodiscard]] BalloonSettings readBalloon(ByteReader& in, std::uint32_t flags);

/// All but the flags.
void writeBalloon(ByteWriter& out, const BalloonSettings& balloon);
[[nodiscard]] std::uint32_t balloonFlags(const BalloonSettings& balloon);

} // namespace brovin::character
