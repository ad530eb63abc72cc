#include "character/acs_balloon.h"

#include "character/acs_basics.h"
#include "character/acs_colours.h"
#include "character/acs_format.h"
#include "character/acs_limits.h"

#include <algorithm>
#include <cstdlib>

namespace brovin::character {
namespace {

/// The sign tells what is measured, the characters or the whole line; we take both for pixels.
std::uint8_t fontHeight(std::int32_t stored) {
    const std::int64_t height = std::abs(std::int64_t{stored});
    return height == 0 || height > kHighestFont ? kDefaultFontHeight : static_cast<std::uint8_t>(height);
}

std::uint16_t fontWeight(std::int32_t stored) {
    return stored < 0 || stored > kHeaviestFont ? kDefaultFontWeight : static_cast<std::uint16_t>(stored);
}

} // namespace

BalloonSettings readBalloon(ByteReader& in, std::uint32_t flags) {
    BalloonSettings balloon;
    const std::uint8_t lines = in.u8();
    const std::uint8_t characters = in.u8();
    if (lines == 0 || characters == 0)
        in.fail("has a balloon without room for text");
    balloon.lines = std::min(lines, kMostBalloonLines);
    balloon.charactersPerLine = std::max(characters, kFewestLineCharacters);
    const BalloonColours colours = readBalloonColours(in);
    balloon.text = colours.text;
    balloon.background = colours.background;
    balloon.border = colours.border;
    balloon.fontName = readText(in, kMostTextUnits);
    balloon.fontHeightPixels = fontHeight(in.i32());
    balloon.fontWeight = fontWeight(in.i32());
    balloon.italic = in.u8() != 0;
    in.skip(1); // of unknown meaning, seen as 0 only
    balloon.sizeToText = (flags & kSizeToText) != 0;
    balloon.autoHide = (flags & kNoAutoHide) == 0;
    balloon.autoPace = (flags & kNoAutoPace) == 0;
    return balloon;
}

void writeBalloon(ByteWriter& out, const BalloonSettings& balloon) {
    out.u8(balloon.lines);
    out.u8(balloon.charactersPerLine);
    writeBalloonColours(out, {balloon.text, balloon.background, balloon.border});
    writeText(out, balloon.fontName);
    out.i32(-std::int32_t{balloon.fontHeightPixels});
    out.i32(balloon.fontWeight);
    out.u8(balloon.italic ? 1 : 0);
    out.u8(0);
}

std::uint32_t balloonFlags(const BalloonSettings& balloon) {
    return (balloon.sizeToText ? kSizeToText : 0U) | (balloon.autoHide ? 0U : kNoAutoHide) |
           (balloon.autoPace ? 0U : kNoAutoPace);
}

} // namespace brovin::character
