#include "desktop/character/opaque_region.h"

#include <QRect>

#include <cstddef>
#include <utility>
#include <vector>

namespace brovin::desktop {
namespace {

/// A run of opaque pixels: from the first to behind the last.
using Run = std::pair<int, int>;

void findRuns(const QRgb* pixels, int width, std::vector<Run>& runs) {
    runs.clear();
    for (int x = 0; x < width; ++x) {
        if (qAlpha(pixels[x]) == 0)
            continue;
        const int begin = x;
        while (x < width && qAlpha(pixels[x]) != 0)
            ++x;
        runs.emplace_back(begin, x);
    }
}

} // namespace

/// A shape costs by its rectangles, so rows of the same runs become one band.
QRegion opaqueRegion(const QImage& picture) {
    std::vector<QRect> rects;
    std::vector<Run> band;
    std::vector<Run> row;
    for (int y = 0; y < picture.height(); ++y) {
        findRuns(reinterpret_cast<const QRgb*>(picture.constScanLine(y)), picture.width(), row);
        if (row == band) {
            for (std::size_t i = rects.size() - band.size(); i < rects.size(); ++i)
                rects[i].setHeight(rects[i].height() + 1);
            continue;
        }
        for (const auto& [begin, end] : row)
            rects.emplace_back(begin, y, end - begin, 1);
        std::swap(band, row);
    }
    QRegion region;
    region.setRects(rects.data(), static_cast<int>(rects.size()));
    return region;
}

} // namespace brovin::desktop
