#include "character/enlarger.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <random>
#include <tuple>

namespace brovin::character {
namespace {

constexpr std::uint32_t kRed = 0xFFE01020;
constexpr std::uint32_t kWhite = 0xFFFFFFFF;
constexpr std::uint32_t kBlack = 0xFF000000;
using Edges = Enlarger::Edges;

Enlarger::Wanted square(int side, Edges edges) {
    return {static_cast<std::uint16_t>(side), static_cast<std::uint16_t>(side), edges};
}

Bitmap drawn(int side, const std::function<std::uint32_t(int x, int y)>& colour) {
    Bitmap frame{static_cast<std::uint16_t>(side), static_cast<std::uint16_t>(side), {}};
    for (int y = 0; y < side; ++y)
        for (int x = 0; x < side; ++x)
            frame.pixels.push_back(colour(x, y));
    return frame;
}

Bitmap enlarged(const Bitmap& frame, int side, Edges edges = Edges::Blended) {
    return Enlarger().enlarge(frame, square(side, edges));
}

std::uint32_t at(const Bitmap& picture, int x, int y) {
    const int pixel = y * picture.width + x;
    return picture.pixels[static_cast<std::size_t>(pixel)];
}

TEST(Enlarger, leavesAFrameOfTheRightSizeAlone) {
    const Bitmap frame = drawn(20, [](int x, int y) { return x > y ? kRed : 0; });
    EXPECT_EQ(frame, enlarged(frame, 20));
    EXPECT_EQ(frame, enlarged(frame, 20, Edges::Cut));
}

TEST(Enlarger, keepsColoursAndFillsTheFrameToItsEdges) {
    for (const int side : {20, 21, 30, 40, 47, 60}) {
        EXPECT_EQ(drawn(side, [](int, int) { return kRed; }),
                  enlarged(drawn(20, [](int, int) { return kRed; }), side));
        const Bitmap disc =
            enlarged(drawn(20, [](int x, int y) { return std::hypot(x - 9, y - 9) < 6 ? kRed : 0; }), side);
        for (const std::uint32_t pixel : disc.pixels) {
            const std::uint32_t alpha = pixel >> 24U;
            for (unsigned shift = 0; shift < 24; shift += 8)
                EXPECT_NEAR((kRed >> shift & 0xFFU) * alpha / 255.0, pixel >> shift & 0xFFU, 1)
                    << side << ": nothing but its own red at the outline";
        }
    }
}

TEST(Enlarger, makesALineOfADiagonalOfSteps) {
    const Bitmap wedge = drawn(20, [](int x, int y) { return x > y ? kRed : 0; });
    for (const int side : {30, 40, 60}) {
        const Bitmap large = enlarged(wedge, side);
        const Bitmap cut = enlarged(wedge, side, Edges::Cut);
        const double edge = 0.5 * side / 20; // right of the diagonal
        for (int y = 8; y < side - 8; ++y)
            for (int x = 8; x < side - 8; ++x) {
                const double beyond = (x - y - edge) / std::sqrt(2); // pixels, into the wedge
                const std::uint32_t alpha = at(large, x, y) >> 24U;
                EXPECT_NEAR(std::clamp(127.5 + beyond * 205, 0.0, 255.0), alpha, 40) << side << ' ' << x - y;
                EXPECT_EQ(at(cut, x, y), alpha < 128 ? 0 : kRed);
            }
    }
}

TEST(Enlarger, keepsThinLinesSharpAndWithoutAHalo) {
    const Bitmap line = enlarged(drawn(20, [](int x, int) { return x == 10 ? kBlack : kWhite; }), 40);
    for (const auto& [x, least, most] : {std::tuple{18, 255, 255},
                                         {19, 180, 255},
                                         {20, 0, 70},
                                         {21, 0, 70},
                                         {22, 180, 255},
                                         {23, 255, 255}}) {
        const int grey = static_cast<int>(at(line, x, 20) & 0xFFU);
        EXPECT_TRUE(least <= grey && grey <= most) << x << ": " << grey;
    }
    const Bitmap antenna = enlarged(drawn(20, [](int x, int) { return x == 10 ? kRed : 0; }), 40);
    EXPECT_LT(160U, at(antenna, 20, 20) >> 24U) << "nor is what stands alone lost";
}

TEST(Enlarger, drawsWhatHasChangedAsIfItWereNew) {
    std::minstd_rand random(7);
    Bitmap frame = drawn(32, [&](int x, int y) { return (x / 7 + y / 5) % 3 == 0 ? 0 : kRed; });
    Enlarger kept;
    for (int i = 0; i < 60; ++i) {
        for (unsigned changes = random() % 4; changes > 0; --changes)
            frame.pixels[random() % frame.pixels.size()] =
                random() % 2 == 0 ? 0 : kRed ^ static_cast<std::uint32_t>(random() % 99);
        const int side = i < 30 ? 64 : 77;
        const Edges edges = i % 10 == 0 ? Edges::Cut : Edges::Blended;
        ASSERT_EQ(enlarged(frame, side, edges), kept.enlarge(frame, square(side, edges))) << i;
    }
}

} // namespace
} // namespace brovin::character
