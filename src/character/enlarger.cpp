#include "character/enlarger.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <utility>

namespace brovin::character {
namespace {

constexpr std::uint32_t kColour = 0x00FFFFFFU;
/// The alpha of a transparent pixel that has got the colour of its neighbours.
constexpr std::uint32_t kBeside = 0x01000000U;
/// How far beyond the figure colours are asked for.
constexpr std::size_t kSpread = 2;
/// And how far away a change is seen in the result.
constexpr std::size_t kReach = kSpread + 2;

/// How fast the smoothed step at an edge rises, for each pixel of the frame.
constexpr float kRise = 0.75F;
/// Pixels of the result from transparent to opaque.
constexpr float kEdgeWidth = 1.25F;

/// What four neighbours weigh in a place that lies `t` of the way from the second to the third: cubic
/// convolution, by which lines stay sharp.
std::array<float, 4> sharpWeights(float t) {
    constexpr float kA = -0.75F;
    const auto inner = [](float x) { return ((kA + 2) * x - (kA + 3)) * x * x + 1; };
    const auto outer = [](float x) { return ((kA * x - 5 * kA) * x + 8 * kA) * x - 4 * kA; };
    return {outer(1 + t), inner(t), inner(1 - t), outer(2 - t)};
}

/// And the cubic B-spline, by which steps become lines.
std::array<float, 4> smoothWeights(float t) {
    const float s = 1 - t;
    return {s * s * s / 6, (4 - 6 * t * t + 3 * t * t * t) / 6, (4 - 6 * s * s + 3 * s * s * s) / 6,
            t * t * t / 6};
}

/// Four neighbours, of which colours stay between those of the inner two, so that nothing gets a halo.
template <class Sample>
Sample mixed(const std::array<Sample, 4>& weights, const Sample& a, const Sample& b, const Sample& c,
             const Sample& d) {
    Sample sum;
    for (std::size_t i = 0; i < sum.size(); ++i)
        sum[i] = weights[0][i] * a[i] + weights[1][i] * b[i] + weights[2][i] * c[i] + weights[3][i] * d[i];
    for (std::size_t i = 0; i < 3; ++i)
        sum[i] = std::max(std::min(sum[i], std::max(b[i], c[i])), std::min(b[i], c[i]));
    return sum;
}

/// The pixel, or the colour of the nearest of a line that has one. `at` is the pixel's place in the line.
std::uint32_t withColour(const std::uint32_t* line, std::size_t step, std::size_t at, std::size_t count) {
    if (line[at * step] != 0)
        return line[at * step];
    for (std::size_t away = 1; away <= kSpread; ++away) {
        if (at >= away && line[(at - away) * step] != 0)
            return (line[(at - away) * step] & kColour) | kBeside;
        if (at + away < count && line[(at + away) * step] != 0)
            return (line[(at + away) * step] & kColour) | kBeside;
    }
    return 0;
}

/// Of what is not negative; the library's own functions take as long as all the rest.
std::uint32_t rounded(float value) {
    constexpr float kHalf = 0.5F;
    return static_cast<std::uint32_t>(value + kHalf);
}

template <class Sample>
Sample sampleOf(std::uint32_t pixel) {
    return {static_cast<float>(pixel & 0xFFU), static_cast<float>(pixel >> 8U & 0xFFU),
            static_cast<float>(pixel >> 16U & 0xFFU), static_cast<float>(pixel >> 24U)};
}

} // namespace

const Bitmap& Enlarger::enlarge(const Bitmap& frame, const Wanted& wanted) {
    if (wanted.width == frame.width && wanted.height == frame.height)
        return frame;
    Box box{0, 0, frame.width, frame.height};
    if (wanted == wanted_ && frame.width == frame_.width && frame.height == frame_.height) {
        box = changedIn(frame);
    } else {
        wanted_ = wanted;
        columns_ = tapsFor(frame.width, wanted.width);
        rows_ = tapsFor(frame.height, wanted.height);
        const float larger = static_cast<float>(wanted.width) / static_cast<float>(frame.width);
        steepness_ = std::max(larger / (kRise * kEdgeWidth), 1.0F);
        across_.assign(frame.pixels.size(), 0);
        spread_.assign(frame.pixels.size(), 0);
        result_.width = wanted.width;
        result_.height = wanted.height;
        result_.pixels.assign(std::size_t{wanted.width} * wanted.height, 0);
    }
    if (box.left == box.right)
        return result_;
    frame_ = frame;
    spreadColours(box);
    draw(grown(box, kReach));
    return result_;
}

std::vector<Enlarger::Taps> Enlarger::tapsFor(std::size_t from, std::size_t to) {
    std::vector<Taps> taps;
    for (std::size_t i = 0; i < to; ++i) {
        const float place =
            (static_cast<float>(i) + 0.5F) * static_cast<float>(from) / static_cast<float>(to) - 0.5F;
        const float second = std::floor(place);
        const auto sharp = sharpWeights(place - second);
        const auto smooth = smoothWeights(place - second);
        Taps& made = taps.emplace_back();
        for (std::size_t k = 0; k < made.from.size(); ++k) {
            made.weights[k] = {sharp[k], sharp[k], sharp[k], smooth[k]};
            const float source = second + static_cast<float>(k) - 1; // at the frame's edges all goes on
            made.from[k] = static_cast<std::size_t>(std::clamp(source, 0.0F, static_cast<float>(from - 1)));
        }
    }
    return taps;
}

Enlarger::Box Enlarger::changedIn(const Bitmap& frame) const {
    Box box{frame.width, frame.height, 0, 0};
    for (std::size_t y = 0; y < frame.height; ++y) {
        const auto begin = frame.pixels.begin() + static_cast<std::ptrdiff_t>(y * frame.width);
        const auto end = begin + frame.width;
        const auto before = frame_.pixels.begin() + static_cast<std::ptrdiff_t>(y * frame.width);
        const auto first = std::mismatch(begin, end, before).first;
        if (first == end)
            continue;
        const auto last = std::mismatch(std::reverse_iterator(end), std::reverse_iterator(begin),
                                        std::reverse_iterator(before + frame.width))
                              .first.base();
        box.left = std::min(box.left, static_cast<std::size_t>(first - begin));
        box.right = std::max(box.right, static_cast<std::size_t>(last - begin));
        box.top = std::min(box.top, y);
        box.bottom = y + 1;
    }
    return box.right == 0 ? Box{} : box;
}

Enlarger::Box Enlarger::grown(const Box& box, std::size_t by) const {
    return {box.left - std::min(box.left, by), box.top - std::min(box.top, by),
            std::min<std::size_t>(box.right + by, frame_.width),
            std::min<std::size_t>(box.bottom + by, frame_.height)};
}

/// So that at the outline the figure's own colours are mixed, and not with what a transparent pixel holds.
void Enlarger::spreadColours(const Box& changed) {
    const Box box = grown(changed, kSpread);
    const std::size_t width = frame_.width;
    for (std::size_t y = changed.top; y < changed.bottom; ++y)
        for (std::size_t x = box.left; x < box.right; ++x)
            across_[y * width + x] = withColour(&frame_.pixels[y * width], 1, x, width);
    for (std::size_t y = box.top; y < box.bottom; ++y)
        for (std::size_t x = box.left; x < box.right; ++x)
            spread_[y * width + x] = withColour(&across_[x], width, y, frame_.height);
}

/// All of the result in which these pixels of the frame have a part.
void Enlarger::draw(const Box& box) {
    const auto part = [](const std::vector<Taps>& taps, std::size_t from, std::size_t to) {
        const auto begin = std::partition_point(taps.begin(), taps.end(),
                                                [from](const Taps& tap) { return tap.from.back() < from; });
        const auto end =
            std::partition_point(begin, taps.end(), [to](const Taps& tap) { return tap.from.front() < to; });
        return std::pair(static_cast<std::size_t>(begin - taps.begin()),
                         static_cast<std::size_t>(end - taps.begin()));
    };
    const auto [left, right] = part(columns_, box.left, box.right);
    const auto [top, bottom] = part(rows_, box.top, box.bottom);
    for (Line& line : lines_)
        line.filled = false;
    for (std::size_t y = top; y < bottom; ++y) {
        const Taps& taps = rows_[y];
        std::array<const Sample*, 4> from{};
        for (std::size_t k = 0; k < from.size(); ++k)
            from[k] = widened(taps.from[k], left, right).data();
        std::uint32_t* const to = &result_.pixels[y * result_.width];
        for (std::size_t x = left; x < right; ++x)
            to[x] = pixelOf(mixed(taps.weights, from[0][x], from[1][x], from[2][x], from[3][x]));
    }
}

/// A row of the frame, as wide as the result between these places.
const std::vector<Enlarger::Sample>& Enlarger::widened(std::size_t row, std::size_t left, std::size_t right) {
    Line& line = lines_[row % lines_.size()]; // those that are wanted together follow one another
    if (line.filled && line.row == row)
        return line.samples;
    line.row = row;
    line.filled = true;
    line.samples.resize(columns_.size());
    const std::uint32_t* const pixels = &spread_[row * frame_.width];
    samples_.resize(frame_.width);
    for (std::size_t x = columns_[left].from.front(); x <= columns_[right - 1].from.back(); ++x)
        samples_[x] = sampleOf<Sample>(pixels[x]);
    for (std::size_t x = left; x < right; ++x) {
        const Taps& taps = columns_[x];
        line.samples[x] = mixed(taps.weights, samples_[taps.from[0]], samples_[taps.from[1]],
                                samples_[taps.from[2]], samples_[taps.from[3]]);
    }
    return line.samples;
}

std::uint32_t Enlarger::pixelOf(const Sample& sample) const {
    const float cover = std::clamp((sample[3] / 255 - 0.5F) * steepness_ + 0.5F, 0.0F, 1.0F);
    const bool cut = wanted_.edges == Edges::Cut;
    const float alpha = cut ? (cover < 0.5F ? 0.0F : 1.0F) : cover;
    std::uint32_t pixel = rounded(alpha * 255);
    for (std::size_t i = 3; i-- > 0;)
        pixel = pixel << 8U | rounded(sample[i] * alpha);
    return pixel;
}

} // namespace brovin::character
