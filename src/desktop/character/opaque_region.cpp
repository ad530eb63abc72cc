#include "desktop/character/opaque_region.h"

#include <QRect>

#include <algorithm>
#include <cstddef>
#include <optional>
#include <utility>
#include <vector>

namespace brovin::desktop {
namespace {

/// What a window system takes without a noticeable delay.
constexpr std::size_t kMostRectangles = 4096;

/// A run of opaque cells: from the first to behind the last.
using Run = std::pair<int, int>;

/// Rows of square cells, which are opaque where any of their pixels is.
class CellRow {
public:
    /// The cells' side is two to the power of `power`.
    CellRow(const QImage& picture, int power)
        : picture_(picture), power_(power),
          opaque_(static_cast<std::size_t>(((picture.width() - 1) >> power) + 1)) {}

    /// The runs of the row from the pixels of row `top` on.
    void findRuns(int top, std::vector<Run>& runs) {
        std::fill(opaque_.begin(), opaque_.end(), char{0});
        for (int y = top; y < std::min(top + (1 << power_), picture_.height()); ++y)
            mark(reinterpret_cast<const QRgb*>(picture_.constScanLine(y)));
        runs.clear();
        const auto begin = opaque_.cbegin();
        const auto end = opaque_.cend();
        for (auto from = std::find(begin, end, char{1}); from != end;) {
            const auto to = std::find(from, end, char{0});
            runs.emplace_back(from - begin, to - begin);
            from = std::find(to, end, char{1});
        }
    }

private:
    void mark(const QRgb* pixels) {
        for (int x = 0; x < picture_.width(); ++x)
            if (qAlpha(pixels[x]) != 0)
                opaque_[static_cast<std::size_t>(x >> power_)] = 1;
    }

    const QImage& picture_;
    int power_;
    std::vector<char> opaque_; ///< by cell; of bytes, since this is done for every frame
};

/// A shape costs by its rectangles, so rows of the same runs become one band. nullopt: there are too many.
std::optional<QRegion> regionOfCells(const QImage& picture, int power) {
    const int cell = 1 << power;
    std::vector<QRect> rects;
    std::vector<Run> band;
    std::vector<Run> row;
    CellRow cells(picture, power);
    for (int y = 0; y < picture.height(); y += cell) {
        cells.findRuns(y, row);
        if (row == band) {
            for (std::size_t i = rects.size() - band.size(); i < rects.size(); ++i)
                rects[i].setHeight(rects[i].height() + cell);
            continue;
        }
        for (const auto& [begin, end] : row)
            rects.emplace_back(begin * cell, y, (end - begin) * cell, cell);
        if (rects.size() > kMostRectangles)
            return std::nullopt;
        std::swap(band, row);
    }
    QRegion region;
    region.setRects(rects.data(), static_cast<int>(rects.size()));
    return region;
}

} // namespace

QRegion opaqueRegion(const QImage& picture) {
    if (picture.isNull())
        return {};
    for (int power = 0;; ++power)
        if (const auto region = regionOfCells(picture, power))
            return power == 0 ? *region : *region & picture.rect();
}

} // namespace brovin::desktop
