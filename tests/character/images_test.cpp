#include "character/bitmap.h"
#include "character/image_store.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <utility>

namespace brovin::character {
namespace {

IndexedImage filled(std::uint8_t index) {
    return {10, 10, std::vector<std::uint8_t>(100, index)};
}

std::vector<EncodedImage> threeImages() {
    return {encodeImage(filled(1)), encodeImage(filled(2)), encodeImage(filled(3))};
}

TEST(IndexedImage, storesTheBottomRowFirstInPaddedRows) {
    const EncodedImage noise = encodeImage({3, 2, {1, 2, 3, 4, 5, 6}});
    EXPECT_EQ(ImageCoding::Plain, noise.coding) << "not shorter when packed";
    EXPECT_EQ(SharedBytes({4, 5, 6, 0, 1, 2, 3, 0}), noise.bytes);
    const EncodedImage padded{3, 2, ImageCoding::Plain, SharedBytes({4, 5, 6, 99, 1, 2, 3, 99})};
    EXPECT_EQ((IndexedImage{3, 2, {1, 2, 3, 4, 5, 6}}), decodeImage(padded)) << "padding means nothing";
    EXPECT_EQ(ImageCoding::Packed, encodeImage(filled(7)).coding);
    EXPECT_EQ(filled(7), decodeImage(encodeImage(filled(7))));
}

TEST(IndexedImage, hasALargestSize) {
    EXPECT_EQ(12U, plainImageBytes(1, 3)) << "rows are padded";
    EXPECT_EQ(std::size_t{4} << 20U, plainImageBytes(4096, 1024));
    EXPECT_EQ(std::size_t{4} << 20U, plainImageBytes(1021, 4096));
    const std::pair<int, int> notAllowed[] = {{0, 1},    {1, 0},       {4097, 1},
                                              {1, 4097}, {4096, 1025}, {65535, 65535}};
    for (const auto& [width, height] : notAllowed)
        EXPECT_EQ(std::nullopt,
                  plainImageBytes(static_cast<std::uint16_t>(width), static_cast<std::uint16_t>(height)))
            << width << " by " << height;
}

TEST(IndexedImage, isNotMadeOfWhatDoesNotFit) {
    const struct {
        EncodedImage image;
        std::string_view why;
    } kCases[] = {
        {{}, "empty"},
        {{4, 2, ImageCoding::Plain, SharedBytes(std::vector<std::uint8_t>(7))}, "a byte is missing"},
        {{4, 2, ImageCoding::Packed, SharedBytes({0, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF})}, "no pixels"},
        {{4, 2, ImageCoding::Packed, SharedBytes({1, 2, 3})}, "not packed"},
        {{4097, 1, ImageCoding::Plain, SharedBytes(std::vector<std::uint8_t>(5000))}, "too wide"},
    };
    for (const auto& [image, why] : kCases)
        EXPECT_EQ(std::nullopt, decodeImage(image)) << why;
    EXPECT_EQ(EncodedImage(), encodeImage({2, 2, {1, 2, 3}}));
    EXPECT_EQ(EncodedImage(), encodeImage({4096, 1025, std::vector<std::uint8_t>(std::size_t{4096} * 1025)}));
}

TEST(ImageStore, decodesOnceAndKeepsWhatFits) {
    ImageStore store(threeImages(), 250);
    EXPECT_EQ(0U, store.cachedBytes()) << "nothing before it is asked for";
    const auto first = store.image(0);
    EXPECT_EQ(filled(1), *first);
    static_cast<void>(store.image(1));
    EXPECT_EQ(first, store.image(0)) << "the same object";
    EXPECT_EQ(200U, store.cachedBytes());
    static_cast<void>(store.image(2)); // image 1 was asked for longest ago
    EXPECT_EQ(200U, store.cachedBytes());
    EXPECT_EQ(first, store.image(0));
    EXPECT_EQ(filled(2), *store.image(1));
    EXPECT_EQ(200U, store.cachedBytes());
}

TEST(ImageStore, lendsImagesThatOutliveTheirPlace) {
    ImageStore store(threeImages(), 100);
    const auto first = store.image(0);
    static_cast<void>(store.image(1));
    EXPECT_EQ(filled(1), *first);
    EXPECT_NE(first, store.image(0)) << "decoded again";
    ImageStore none(threeImages(), 99);
    EXPECT_EQ(filled(2), *none.image(1));
    EXPECT_EQ(0U, none.cachedBytes()) << "too large to be kept";
}

TEST(ImageStore, hasNothingForWhatCannotBeDrawn) {
    ImageStore store({{}, {4, 4, ImageCoding::Packed, SharedBytes({1, 2, 3})}});
    for (const std::size_t index : {0U, 1U, 1U, 2U})
        EXPECT_EQ(nullptr, store.image(index));
}

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
