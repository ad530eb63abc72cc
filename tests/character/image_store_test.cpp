#include "character/image_store.h"

#include <gtest/gtest.h>

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

} // namespace
} // namespace brovin::character
