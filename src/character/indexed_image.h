#pragma once

#include "character/character_data.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace brovin::character {

/// One palette index a pixel, the top row first, without padding: width times height bytes.
struct IndexedImage {
    std::uint16_t width = 0;
    std::uint16_t height = 0;
    std::vector<std::uint8_t> pixels;

    [[nodiscard]] std::span<const std::uint8_t> row(std::size_t y) const {
        return std::span(pixels).subspan(y * width, width);
    }

    bool operator==(const IndexedImage&) const = default;
};

/// Bytes of the plain form of an image; nullopt when a side is 0 or above 4096, or when the form takes more
/// than 4 MiB.
[[nodiscard]] std::optional<std::size_t> plainImageBytes(std::uint16_t width, std::uint16_t height);

/// The pixels of an image; nullopt when it is empty or damaged. Takes up to 4 MiB beside the result.
[[nodiscard]] std::optional<IndexedImage> decodeImage(const EncodedImage& image);

/// The form in which a file keeps an image: packed where that is shorter, else plain. An image whose sides
/// are not allowed (see `plainImageBytes`) or do not fit its pixels becomes the empty one.
[[nodiscard]] EncodedImage encodeImage(const IndexedImage& image);

} // namespace brovin::character
