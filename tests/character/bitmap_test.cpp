#include "character/bitmap.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace brovin::character {
namespace {

/// Frames of 4 by 3 pixels and images given as text, one letter a pixel: '.' is the transparent colour, '1'
/// and '2' are colours of the palette, '9' lies beyond it.
class PaintTest : public testing::Test {
protected:
    std::uint32_t add(std::uint16_t width, std::string_view pixels) {
        std::vector<std::uint8_t> indices;
        for (const char c : pixels)
            indices.push_back(static_cast<std::uint8_t>(c == '.' ? 0 : c - '0'));
        const auto height = static_cast<std::uint16_t>(pixels.size() / width);
        character_.images.push_back(encodeImage({width, height, indices}));
        return static_cast<std::uint32_t>(character_.images.size() - 1);
    }

    /// The frame as text, row after row.
    std::string paint(const Frame& frame, const MouthOverlay* overlay = nullptr) {
        character_.width = 4;
        character_.height = 3;
        character_.transparentIndex = 0;
        character_.palette = {{9, 9, 9}, {0x11, 0x22, 0x33}, {0, 0, 0}};
        ImageStore images(character_.images);
        Bitmap canvas{1, 1, {0xFFFFFFFF}};
        FramePainter(character_, images).paint(frame, overlay, canvas);
        EXPECT_EQ(4, canvas.width);
        EXPECT_EQ(3, canvas.height);
        std::string text;
        for (const std::uint32_t pixel : canvas.pixels)
            text.push_back(pixel == 0 ? '.' : pixel == 0xFF112233 ? '1' : pixel == 0xFF000000 ? '2' : '?');
        return text;
    }

    static Frame frameOf(std::vector<FrameImage> images) {
        Frame frame;
        frame.images = std::move(images);
        return frame;
    }

private:
    CharacterData character_;
};

TEST_F(PaintTest, drawsTheFirstImageOnTop) {
    const std::uint32_t below = add(4, "1111"
                                       "1111"
                                       "1111");
    const std::uint32_t above = add(2, "2."
                                       ".2");
    EXPECT_EQ("1111"
              "1211"
              "1121",
              paint(frameOf({{above, 1, 1}, {below, 0, 0}})));
    EXPECT_EQ("............", paint(Frame()));
}

TEST_F(PaintTest, cutsOffWhatLiesBeyondTheFrame) {
    const std::uint32_t image = add(3, "121"
                                       "212"
                                       "121");
    const struct {
        std::int16_t x;
        std::int16_t y;
        std::string_view expected;
    } kCases[] = {
        {-1, -1, "12..21......"},       {2, 1, "......12..21"}, {-2, 2, "........1..."},
        {-3, 0, "............"},        {4, 0, "............"}, {0, 3, "............"},
        {0, -3, "............"},        {3, 2, "...........1"}, {-32768, -32768, "............"},
        {32767, 32767, "............"},
    };
    for (const auto& [x, y, expected] : kCases)
        EXPECT_EQ(expected, paint(frameOf({{image, x, y}}))) << x << ", " << y;
    const std::uint32_t larger = add(6, "111111"
                                        "122221"
                                        "122221"
                                        "122221"
                                        "111111");
    EXPECT_EQ("222222222222", paint(frameOf({{larger, -1, -1}})));
}

TEST_F(PaintTest, leavesOutWhatCannotBeDrawn) {
    const std::uint32_t below = add(2, "11");
    const std::uint32_t above = add(2, "92"); // a colour beyond the palette
    EXPECT_EQ("12..........", paint(frameOf({{17, 0, 0}, {above, 0, 0}, {below, 0, 0}})));
}

TEST_F(PaintTest, laysTheMouthOverTheFrameOrInPlaceOfItsTop) {
    const auto face = add(4, "...."
                             ".11."
                             "....");
    const auto closed = add(1, "1");
    const auto open = static_cast<std::uint16_t>(add(3, "2.2"));
    const Frame frame = frameOf({{closed, 3, 2}, {face, 0, 0}});
    const MouthOverlay over{Mouth::OpenWide1, false, open, 1, 1};
    EXPECT_EQ("...."
              ".21."
              "...1",
              paint(frame, &over))
        << "only where the frame is opaque";
    const MouthOverlay instead{Mouth::OpenWide1, true, open, 1, 1};
    EXPECT_EQ("...."
              ".212"
              "....",
              paint(frame, &instead))
        << "everywhere, and without the top image";
    EXPECT_EQ(".....2.2....", paint(Frame(), &instead));
    EXPECT_EQ("............", paint(Frame(), &over));
}

} // namespace
} // namespace brovin::character
