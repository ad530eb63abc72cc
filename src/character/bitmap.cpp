#include "character/bitmap.h"

#include <algorithm>
#include <cstddef>
#include <span>

namespace brovin::character {
namespace {

/// The part of an image's side that lies within a frame's.
struct Visible {
    std::size_t from = 0; ///< in the image
    std::size_t to = 0;
    std::size_t at = 0; ///< of `from` in the frame
};

Visible visible(int offset, int imageSide, int frameSide) {
    const int from = std::clamp(-offset, 0, imageSide);
    const int to = std::clamp(frameSide - offset, from, imageSide);
    if (from == to)
        return {};
    return {static_cast<std::size_t>(from), static_cast<std::size_t>(to),
            static_cast<std::size_t>(from + offset)};
}

} // namespace

FramePainter::FramePainter(const CharacterData& character, ImageStore& images)
    : images_(images), width_(character.width), height_(character.height) {
    const std::size_t count = std::min(character.palette.size(), colours_.size());
    for (std::size_t i = 0; i < count; ++i) {
        const Colour& colour = character.palette[i];
        colours_[i] = 0xFF000000U | (std::uint32_t{colour.red} << 16U) | (std::uint32_t{colour.green} << 8U) |
                      colour.blue;
    }
    colours_[character.transparentIndex] = 0;
}

void FramePainter::paint(const Frame& frame, const MouthOverlay* overlay, Bitmap& canvas) {
    canvas.width = width_;
    canvas.height = height_;
    canvas.pixels.assign(std::size_t{width_} * height_, 0);
    const bool replaces = overlay != nullptr && overlay->replacesTopImage;
    const std::size_t top = replaces ? 1 : 0;
    for (std::size_t i = frame.images.size(); i-- > top;)
        draw(frame.images[i], Where::Everywhere, canvas);
    if (overlay != nullptr)
        draw({overlay->image, overlay->x, overlay->y}, replaces ? Where::Everywhere : Where::OverOpaque,
             canvas);
}

void FramePainter::draw(const FrameImage& placed, Where where, Bitmap& canvas) {
    const auto image = images_.image(placed.image);
    if (!image)
        return;
    const Visible columns = visible(placed.x, image->width, width_);
    const Visible rows = visible(placed.y, image->height, height_);
    for (std::size_t y = rows.from; y < rows.to; ++y) {
        const auto from = image->row(y).subspan(columns.from, columns.to - columns.from);
        const std::size_t start = (rows.at + y - rows.from) * width_ + columns.at;
        const auto to = std::span(canvas.pixels).subspan(start, from.size());
        for (std::size_t x = 0; x < from.size(); ++x) {
            const std::uint32_t colour = colours_[from[x]];
            if (colour != 0 && (where == Where::Everywhere || to[x] != 0))
                to[x] = colour;
        }
    }
}

} // namespace brovin::character
