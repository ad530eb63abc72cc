#include "acsc/dot.h"
#include "acsc/drawing/palette.h"
#include "acsc/drawing/perceived_colour.h"
#include "acsc/drawing/picture.h"
#include "acsc/drawing/puppet.h"
#include "acsc/movement/easing.h"
#include "acsc/movement/movement.h"
#include "acsc/sources/sounds.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace brovin::acsc::tests {
namespace {

TEST(Easing, goesFromHereToThereItsOwnWay) {
    constexpr struct {
        Ease ease;
        double early; ///< after a quarter of the time
    } kCases[] = {
        {Ease::Linear, 0.25},     {Ease::In, 0.0625},      {Ease::Out, 0.4375},     {Ease::InOut, 0.15625},
        {Ease::OutBack, 0.81741}, {Ease::InBack, -0.0641}, {Ease::Bounce, 0.47266}, {Ease::Step, 0},
    };
    for (const auto& [ease, early] : kCases) {
        EXPECT_NEAR(0, eased(ease, 0), 1e-9);
        EXPECT_NEAR(early, eased(ease, 0.25), 1e-4) << static_cast<int>(ease);
        EXPECT_NEAR(1, eased(ease, 1), 1e-9);
    }
}

TEST(Tracks, takeFromThePoseWhatTheirKeysLeaveOut) {
    DotFolder dot;
    dot.replace(QStringLiteral("animations/all.json"), QStringLiteral("\"Show\": {"),
                QStringLiteral(R"("Lift": {"length": 9, "end": "raised", "tracks": {"arm": [
                    {"at": 4, "rotate": -20, "ease": "linear"}, {"at": 8, "ease": "linear"}]}}, "Show": {)"));
    Problems problems;
    const CharacterSource source = dot.read(problems);
    const std::vector<Pose> poses = posesOf(source.animations[0], *source.rig);
    const std::size_t arm = *source.rig->findPart(QStringLiteral("arm"));
    EXPECT_DOUBLE_EQ(-10, poses[2].parts[arm].rotate);
    EXPECT_DOUBLE_EQ(-30, poses[6].parts[arm].rotate) << "on the way to the pose that it ends with";
    EXPECT_DOUBLE_EQ(-2, poses[8].parts[arm].y);
}

TEST(Puppet, isDrawnFromItsLayersAsTheWholeDrawingWouldBe) {
    DotFolder dot;
    dot.replace(
        QStringLiteral("rig.svg"), QStringLiteral("<circle cx=\"16\" cy=\"12\""),
        QStringLiteral("</g><g transform=\"translate(1 2)\" fill=\"#00ff00\" opacity=\"0.6\"><g id=\"inner\" "
                       "opacity=\"0.8\"><rect x=\"4\" y=\"4\" width=\"9\" height=\"7\"/></g></g>"
                       "<g><circle cx=\"16\" cy=\"12\""));
    Problems problems;
    const CharacterSource source = dot.read(problems);
    ASSERT_TRUE(problems.none()) << qPrintable(problems.list().join(u' '));
    Pose pose = source.rig->neutral();
    pose.parts[*source.rig->findPart(QStringLiteral("body"))] = {2, 1, 20, 1.1, 0.9, 0.9};
    pose.parts[*source.rig->findPart(QStringLiteral("arm"))].rotate = -50;
    pose.parts[*source.rig->findPart(QStringLiteral("inner"))].rotate = 30;
    EXPECT_EQ(10U, source.rig->layers().size()) << "body, arm, inner, what is beside it, closed eyes, mouths";
    const Picture whole = drawSvg(source.rig->svg(pose), source.size);
    const Picture drawn = Puppet(*source.rig, source.size).drawn(pose);
    for (std::size_t i = 0; i < whole.pixels.size(); ++i)
        for (const unsigned shift : {0U, 8U, 16U, 24U})
            EXPECT_NEAR(whole.pixels[i] >> shift & 0xFFU, drawn.pixels[i] >> shift & 0xFFU, 4)
                << "pixel " << i;
}

TEST(Rig, turnsPartsAboutTheirPivots) {
    const DotFolder dot;
    Problems problems;
    const CharacterSource source = dot.read(problems);
    const std::size_t arm = *source.rig->findPart(QStringLiteral("arm"));
    const std::size_t body = *source.rig->findPart(QStringLiteral("body"));
    EXPECT_EQ(QRectF(24, 12, 6, 8), source.rig->parts()[arm].bounds);
    Pose pose = source.rig->neutral();
    pose.parts[arm].rotate = 90;
    pose.parts[body].x = 3;
    EXPECT_EQ(QPointF(28, 16), source.rig->movement(pose, arm).map(QPointF(25, 16)))
        << "the pivot goes along only";
    EXPECT_EQ(QPointF(24, 16), source.rig->movement(pose, arm).map(QPointF(25, 20)));
    const Jump jump = jumpBetween(source.rig->neutral(), pose, *source.rig);
    EXPECT_EQ(arm, jump.part);
}

TEST(Sounds, areMadeByTheirRecipe) {
    const character::CharacterData data = DotFolder().compile();
    ASSERT_EQ(1U, data.sounds.size());
    const auto wave = data.sounds[0].wave.view();
    ASSERT_EQ(44U + 2U * 4410U, wave.size()) << "0.2 s at 22050 Hz";
    int loudest = 0;
    for (std::size_t i = 44; i + 1 < wave.size(); i += 2)
        loudest = std::max(loudest, std::abs(static_cast<std::int16_t>(wave[i] | wave[i + 1] << 8)));
    EXPECT_NEAR(0.6 * 32767, loudest, 700);
}

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
