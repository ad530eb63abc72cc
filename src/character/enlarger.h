#pragma once

#include "character/bitmap.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace brovin::character {

/// The most pixels that a frame is enlarged to: what a hostile one costs is bounded by it.
inline constexpr std::size_t kMostEnlargedPixels = std::size_t{1} << 20U;

/// Draws frames in a larger size as if they had been drawn in it: an outline of steps is a smooth line, and
/// what is one pixel wide stays sharp. Of a frame that differs from the one before in a part, that part is
/// drawn.
class Enlarger {
public:
    enum class Edges : std::uint8_t {
        Blended, ///< pixels of the outline are half transparent; colours are premultiplied
        Cut      ///< a pixel is either opaque or 0, for desktops that cannot blend
    };
    struct Wanted {
        std::uint16_t width = 0; ///< pixels, not below the frame's; as the height
        std::uint16_t height = 0;
        Edges edges = Edges::Blended;

        bool operator==(const Wanted&) const = default;
    };

    /// The frame in this size; in its own as it is. The result is good until the next call.
    [[nodiscard]] const Bitmap& enlarge(const Bitmap& frame, const Wanted& wanted);

private:
    using Sample = std::array<float, 4>; ///< blue, green, red, and how much is covered: 0 to 255
    /// The four places along a side of the frame that make up one along the result's.
    struct Taps {
        std::array<std::size_t, 4> from;
        std::array<Sample, 4> weights;
    };
    struct Box {
        std::size_t left = 0;
        std::size_t top = 0;
        std::size_t right = 0; ///< behind the last
        std::size_t bottom = 0;
    };

    static std::vector<Taps> tapsFor(std::size_t from, std::size_t to);
    [[nodiscard]] Box changedIn(const Bitmap& frame) const;
    [[nodiscard]] Box grown(const Box& box, std::size_t by) const;
    void spreadColours(const Box& box);
    void draw(const Box& box);
    const std::vector<Sample>& widened(std::size_t row, std::size_t left, std::size_t right);
    [[nodiscard]] std::uint32_t pixelOf(const Sample& sample) const;

    Wanted wanted_;
    Bitmap frame_;                      ///< the last one
    std::vector<std::uint32_t> across_; ///< its pixels, with the colours of neighbours in its row
    std::vector<std::uint32_t> spread_; ///< and of those in its column
    std::vector<Taps> columns_;
    std::vector<Taps> rows_;
    float steepness_ = 1;
    struct Line {
        std::size_t row = 0;
        bool filled = false;
        std::vector<Sample> samples;
    };
    std::vector<Sample> samples_; ///< a row of the frame
    std::array<Line, 4> lines_;   ///< rows of the frame, as wide as the result
    Bitmap result_;
};

} // namespace brovin::character
