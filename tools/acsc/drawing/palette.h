#pragma once

#include "acsc/drawing/colour_table.h"
#include "acsc/drawing/perceived_colour.h"
#include "acsc/drawing/picture.h"
#include "character/character_data.h"

#include <cstdint>
#include <map>
#include <utility>
#include <vector>

namespace brovin::acsc {

/// What the author asks of the palette.
struct PaletteWishes {
    std::vector<std::uint32_t> exact; ///< 0xFFRRGGBB: colours that must not change, the most important first
    std::vector<std::uint32_t> entries; ///< the whole palette instead; empty: it is to be found
    std::uint8_t transparent = 10;
};

/// Whether a palette has the standard colours of the desktop in its first and last ten places.
[[nodiscard]] bool hasStandardColours(const std::vector<character::Colour>& palette);

/// One palette for all pictures. The standard colours of the desktop stand in the first and last ten places,
/// as readers expect, index 10 is transparent, and the others are found by what the pictures need. A colour
/// has the same entry in all pictures, so nothing flickers.
class Palette {
public:
    Palette(const std::vector<Picture>& pictures, const PaletteWishes& wishes);

    [[nodiscard]] const std::vector<character::Colour>& colours() const { return colours_; }
    [[nodiscard]] std::uint8_t transparent() const { return transparent_; }
    /// The nearest entry to a colour 0xFFRRGGBB; the transparent one for 0.
    [[nodiscard]] std::uint8_t entryOf(std::uint32_t colour);

private:
    /// A colour as the eye sees it, and its entry.
    using Seen = std::pair<PerceivedColour, std::uint8_t>;

    void know(std::uint32_t colour, std::size_t entry);
    [[nodiscard]] std::uint8_t nearestEntry(const PerceivedColour& wanted);
    void place(const std::vector<std::uint32_t>& found);

    std::vector<character::Colour> colours_;
    std::vector<Seen> byLightness_; ///< all but the transparent one; empty until they are needed
    std::uint8_t transparent_ = 0;
    ColourTable<std::uint8_t> entries_; ///< by colour; the transparent one: not yet known
};

} // namespace brovin::acsc
