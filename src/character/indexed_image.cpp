#include "character/indexed_image.h"

#include "character/acs_limits.h"
#include "character/image_codec.h"

#include <algorithm>
#include <utility>

namespace brovin::character {
namespace {

std::size_t strideOf(std::uint16_t width) {
    return (std::size_t{width} + 3U) & ~std::size_t{3};
}

/// Takes the padding off and turns the rows round.
IndexedImage fromPlain(std::span<const std::uint8_t> plain, std::uint16_t width, std::uint16_t height) {
    const std::size_t stride = strideOf(width);
    IndexedImage image{width, height, {}};
    image.pixels.reserve(std::size_t{width} * height);
    for (std::size_t row = height; row-- > 0;) {
        const auto pixels = plain.subspan(row * stride, width);
        image.pixels.insert(image.pixels.end(), pixels.begin(), pixels.end());
    }
    return image;
}

std::vector<std::uint8_t> toPlain(const IndexedImage& image) {
    const std::size_t stride = strideOf(image.width);
    std::vector<std::uint8_t> plain;
    plain.reserve(stride * image.height);
    for (std::size_t y = image.height; y-- > 0;) {
        const auto pixels = image.row(y);
        plain.insert(plain.end(), pixels.begin(), pixels.end());
        plain.insert(plain.end(), stride - image.width, 0);
    }
    return plain;
}

} // namespace

std::optional<std::size_t> plainImageBytes(std::uint16_t width, std::uint16_t height) {
    const std::size_t bytes = strideOf(width) * height;
    if (bytes == 0 || width > kMostImageSide || height > kMostImageSide || bytes > kMostImageBytes)
        return std::nullopt;
    return bytes;
}

std::optional<IndexedImage> decodeImage(const EncodedImage& image) {
    const auto bytes = plainImageBytes(image.width, image.height);
    if (!bytes)
        return std::nullopt;
    if (image.coding == ImageCoding::Plain) {
        if (image.bytes.size() < *bytes)
            return std::nullopt;
        return fromPlain(image.bytes.view(), image.width, image.height);
    }
    std::vector<std::uint8_t> plain(*bytes);
    if (unpack(image.bytes.view(), plain) != Unpacked::Done)
        return std::nullopt;
    return fromPlain(plain, image.width, image.height);
}

EncodedImage encodeImage(const IndexedImage& image) {
    const bool allowed = plainImageBytes(image.width, image.height).has_value();
    if (!allowed || image.pixels.size() != std::size_t{image.width} * image.height)
        return {};
    std::vector<std::uint8_t> plain = toPlain(image);
    std::vector<std::uint8_t> packed = pack(plain);
    if (packed.size() < plain.size())
        return {image.width, image.height, ImageCoding::Packed, SharedBytes(std::move(packed))};
    return {image.width, image.height, ImageCoding::Plain, SharedBytes(std::move(plain))};
}

} // namespace brovin::character
