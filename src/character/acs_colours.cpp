#include "character/acs_colours.h"

#include "character/acs_basics.h"
#include "character/acs_format.h"
#include "character/acs_limits.h"

#include <cstddef>
#include <utility>

namespace brovin::character {
namespace {

/// The standard colours that tell red from blue, and their places in a full palette.
constexpr struct {
    std::size_t index;
    Colour colour;
} kTellingColours[] = {
    {1, {128, 0, 0}},   {3, {128, 128, 0}},   {4, {0, 0, 128}},   {6, {0, 128, 128}},
    {249, {255, 0, 0}}, {251, {255, 255, 0}}, {252, {0, 0, 255}}, {254, {0, 255, 255}},
};

constexpr Colour kTipYellow{255, 255, 225};

constexpr Colour exchanged(const Colour& colour) {
    return {colour.blue, colour.green, colour.red};
}

void exchange(std::vector<Colour>& palette) {
    for (Colour& colour : palette)
        std::swap(colour.red, colour.blue);
}

int standardColours(const std::vector<Colour>& palette, bool exchange) {
    int count = 0;
    for (const auto& [index, colour] : kTellingColours)
        count += palette[index] == (exchange ? exchanged(colour) : colour) ? 1 : 0;
    return count;
}

Colour readRedFirst(ByteReader& in) {
    Colour colour;
    colour.red = in.u8();
    colour.green = in.u8();
    colour.blue = in.u8();
    in.skip(1);
    return colour;
}

void writeRedFirst(ByteWriter& out, const Colour& colour) {
    out.u8(colour.red);
    out.u8(colour.green);
    out.u8(colour.blue);
    out.u8(0);
}

} // namespace

bool palettePersists(const std::vector<Colour>& palette) {
    return palette.size() < kMostColours || standardColours(palette, true) <= standardColours(palette, false);
}

std::vector<Colour> readPalette(ByteReader& in) {
    const std::uint32_t count = in.u32();
    if (count == 0 || count > kMostColours)
        in.fail("has a palette of no or too many colours");
    auto palette =
        readList(in, count, {.smallest = kColourBytes}, [&in] { return exchanged(readRedFirst(in)); });
    if (!palettePersists(palette))
        exchange(palette);
    return palette;
}

void writePalette(ByteWriter& out, const std::vector<Colour>& palette) {
    out.u32(static_cast<std::uint32_t>(palette.size()));
    for (const Colour& colour : palette)
        writeRedFirst(out, exchanged(colour));
}

bool backgroundPersists(const Colour& background) {
    return background != exchanged(kTipYellow);
}

BalloonColours readBalloonColours(ByteReader& in) {
    BalloonColours colours;
    colours.text = readRedFirst(in);
    colours.background = readRedFirst(in);
    colours.border = readRedFirst(in);
    if (!backgroundPersists(colours.background))
        colours = {exchanged(colours.text), exchanged(colours.background), exchanged(colours.border)};
    return colours;
}

void writeBalloonColours(ByteWriter& out, const BalloonColours& colours) {
    writeRedFirst(out, colours.text);
    writeRedFirst(out, colours.background);
    writeRedFirst(out, colours.border);
}

} // namespace brovin::character
