#include "acsc/dot.h"
#include "acsc/palette.h"
#include "acsc/perceived_colour.h"
#include "acsc/picture.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>

namespace brovin::acsc::tests {
namespace {

TEST(Drawing, hasEdgesOfOneBitAndUnmixedColours) {
    const Picture picture = drawSvg("<svg xmlns='http://www.w3.org/2000/svg' viewBox='0 0 4 1'>"
                                    "<rect x='0.6' y='0' width='1.8' height='1' fill='#3060a0'/></svg>",
                                    {4, 1});
    EXPECT_EQ((std::vector<std::uint32_t>{0, 0xFF3060A0, 0, 0}), picture.pixels);
    const Picture wider = drawSvg("<svg xmlns='http://www.w3.org/2000/svg' viewBox='0 0 4 1'>"
                                  "<rect x='0.25' y='0' width='2.5' height='1' fill='#3060a0'/></svg>",
                                  {4, 1});
    EXPECT_EQ((std::vector<std::uint32_t>{0xFF3060A0, 0xFF3060A0, 0xFF3060A0, 0}), wider.pixels);
}

TEST(Palette, keepsFlatColoursAndTheStandardOnes) {
    const character::CharacterData data = DotFolder().compile();
    ASSERT_EQ(256U, data.palette.size());
    EXPECT_EQ(10, data.transparentIndex);
    EXPECT_EQ((character::Colour{255, 0, 0}), data.palette[249]);
    EXPECT_EQ((character::Colour{0, 0, 128}), data.palette[4]);
    const character::Colour arm{0x30, 0x60, 0xA0};
    EXPECT_NE(data.palette.end(), std::find(data.palette.begin(), data.palette.end(), arm));
    const character::Bitmap frame = painted(data, animation(data, "RestPose").frames[0]);
    EXPECT_EQ(0U, frame.pixels.front()) << "the corner is transparent";
    EXPECT_EQ(0xFF3060A0U, frame.pixels[15 * 32 + 27]);
    EXPECT_EQ(0xFFFFFFFFU, frame.pixels[12 * 32 + 16]);
}

TEST(Palette, comesNearToThousandsOfColoursAndKeepsAnEntryForEach) {
    Picture rainbow{64, 64, {}};
    for (std::uint32_t i = 0; i < 64 * 64; ++i)
        rainbow.pixels.push_back(0xFF000000U | (i % 64) * 4U << 16U | (i / 64) * 4U << 8U | 0x40U);
    PaletteWishes wishes;
    wishes.exact = {rainbow.pixels[100], 0xFF123456};
    Palette palette({rainbow}, wishes);
    double worst = 0;
    for (const std::uint32_t pixel : rainbow.pixels) {
        const std::uint8_t entry = palette.entryOf(pixel);
        EXPECT_NE(palette.transparent(), entry);
        EXPECT_EQ(entry, palette.entryOf(pixel));
        const character::Colour c = palette.colours()[entry];
        const auto rgb = std::uint32_t{c.red} << 16U | std::uint32_t{c.green} << 8U | c.blue;
        worst = std::max(worst, squaredDistance(perceived(pixel), perceived(rgb)));
    }
    EXPECT_LT(std::sqrt(worst), 0.06);
    const character::Colour exact = palette.colours()[palette.entryOf(rainbow.pixels[100])];
    EXPECT_EQ((character::Colour{0x90, 0x04, 0x40}), exact);
    EXPECT_EQ(palette.transparent(), palette.entryOf(0));
}

bool inside(std::size_t pixel, std::size_t left, std::size_t top, std::size_t right, std::size_t bottom) {
    const std::size_t x = pixel % 32;
    const std::size_t y = pixel / 32;
    return x >= left && x < right && y >= top && y < bottom;
}

TEST(Mouths, changeNothingOutsideOfTheMouth) {
    const character::CharacterData data = DotFolder().compile();
    const character::Frame& frame = animation(data, "RestPose").frames[0];
    const character::Bitmap closed = painted(data, frame);
    std::size_t changed = 0;
    ASSERT_EQ(7U, frame.mouths.size());
    for (const character::MouthOverlay& mouth : frame.mouths) {
        EXPECT_FALSE(mouth.replacesTopImage);
        EXPECT_LE(data.images[mouth.image].width, 6);
        const character::Bitmap speaking = painted(data, frame, &mouth);
        for (std::size_t i = 0; i < closed.pixels.size(); ++i)
            if (closed.pixels[i] != speaking.pixels[i]) {
                ++changed;
                EXPECT_TRUE(inside(i, 13, 19, 19, 24)) << i;
            }
    }
    EXPECT_GT(changed, 30U);
}

TEST(Mouths, goBeyondTheOutlineByReplacing) {
    DotFolder dot;
    dot.replace(QStringLiteral("rig.svg"), QStringLiteral("<rect x=\"13\" y=\"19\" width=\"6\" height=\"5\""),
                QStringLiteral("<rect x=\"13\" y=\"19\" width=\"6\" height=\"11\""));
    const character::CharacterData data = dot.compile();
    const character::Frame& frame = animation(data, "RestPose").frames[0];
    ASSERT_EQ(2U, frame.images.size());
    const character::Bitmap closed = painted(data, frame, frame.mouths.data());
    EXPECT_EQ(painted(data, frame), closed);
    const character::Bitmap open = painted(data, frame, &frame.mouths[4]);
    EXPECT_EQ(0U, closed.pixels[28 * 32 + 15]);
    EXPECT_EQ(0xFF802020U, open.pixels[28 * 32 + 15]);
}

} // namespace
} // namespace brovin::acsc::tests
