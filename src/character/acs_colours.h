#pragma once

#include "character/byte_reader.h"
#include "character/byte_writer.h"
#include "character/character_data.h"

#include <vector>

namespace brovin::character {

/// The two places where a character file has colours. Each is four bytes, and files differ in the order of
/// red and blue, so the reader has to guess; what the writer writes is guessed right.

/// A palette of 1 to 256 colours, its count first; any other count is a failure. The order is told by the
/// standard colours, which stand in fixed places of a full palette.
[[nodiscard]] std::vector<Colour> readPalette(ByteReader& in);
void writePalette(ByteWriter& out, const std::vector<Colour>& palette);

/// Whether a palette is guessed right when it is read again. Not so only when it has the standard colours
/// with red and blue exchanged.
[[nodiscard]] bool palettePersists(const std::vector<Colour>& palette);

struct BalloonColours {
    Colour text;
    Colour background;
    Colour border;
};

[[nodiscard]] BalloonColours readBalloonColours(ByteReader& in);
void writeBalloonColours(ByteWriter& out, const BalloonColours& colours);

/// Whether balloon colours are guessed right when they are read again. Not so only for the background that is
/// the yellow of tool tips with red and blue exchanged.
[[nodiscard]] bool backgroundPersists(const Colour& background);

} // namespace brovin::character
