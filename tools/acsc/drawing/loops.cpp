#include "acsc/drawing/loops.h"

#include "character/bitmap.h"

#include <algorithm>
#include <cstdlib>

namespace brovin::acsc {
namespace {

/// Of 255 in any of the three colours. Less is what smooth edges do when a part moves by a tenth of a pixel.
constexpr int kVisible = 24;

bool differ(std::uint32_t a, std::uint32_t b) {
    if ((a == 0) != (b == 0))
        return true;
    for (const unsigned shift : {0U, 8U, 16U})
        if (std::abs(static_cast<int>(a >> shift & 0xFFU) - static_cast<int>(b >> shift & 0xFFU)) > kVisible)
            return true;
    return false;
}

double changeBetween(const character::Bitmap& a, const character::Bitmap& b) {
    int there = 0;
    int different = 0;
    for (std::size_t i = 0; i < a.pixels.size(); ++i) {
        there += (a.pixels[i] | b.pixels[i]) != 0 ? 1 : 0;
        different += differ(a.pixels[i], b.pixels[i]) ? 1 : 0;
    }
    return there == 0 ? 0 : static_cast<double>(different) / there;
}

LoopSeam seamOf(const character::Animation& animation, std::size_t from, std::size_t to,
                character::FramePainter& painter) {
    LoopSeam result{QString::fromStdString(animation.name)};
    character::Bitmap first;
    character::Bitmap before;
    character::Bitmap shown;
    painter.paint(animation.frames[from], nullptr, first);
    before = first;
    for (std::size_t frame = from + 1; frame <= to; ++frame) {
        painter.paint(animation.frames[frame], nullptr, shown);
        result.largest = std::max(result.largest, changeBetween(before, shown));
        std::swap(before, shown);
    }
    result.seam = changeBetween(before, first);
    return result;
}

} // namespace

std::vector<LoopSeam> loopSeams(const character::CharacterData& data) {
    character::ImageStore images(data.images);
    character::FramePainter painter(data, images);
    std::vector<LoopSeam> seams;
    for (const character::Animation& animation : data.animations)
        for (std::size_t frame = 0; frame < animation.frames.size(); ++frame)
            for (const character::Branch& branch : animation.frames[frame].branches)
                if (branch.percent > 50 && branch.frame < frame)
                    seams.push_back(seamOf(animation, branch.frame, frame, painter));
    std::stable_sort(seams.begin(), seams.end(), [](const LoopSeam& a, const LoopSeam& b) {
        return a.seam - a.largest > b.seam - b.largest;
    });
    return seams;
}

} // namespace brovin::acsc
