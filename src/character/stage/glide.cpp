#include "character/stage/glide.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>

namespace brovin::character {
namespace {

constexpr Milliseconds kScreenStep{16};

/// Of the way, at a part of the time: it sets out and arrives gently, and is fastest in the middle.
double eased(double part) {
    return part * part * (3 - 2 * part);
}

} // namespace

Place Glide::at(Moment now) const {
    if (over(now))
        return to_;
    const double part =
        eased(static_cast<double>((now - start_).count()) / static_cast<double>(time_.count()));
    const auto between = [part](int from, int to) {
        return from + static_cast<int>(std::lround((to - from) * part));
    };
    return {between(from_.x, to_.x), between(from_.y, to_.y)};
}

Moment Glide::nextStep(Moment now) const {
    const int pixels = std::max(std::abs(to_.x - from_.x), std::abs(to_.y - from_.y));
    const Milliseconds pixelTime = time_ / std::max(pixels, 1);
    return std::min(end(), now + std::max(kScreenStep, pixelTime));
}

} // namespace brovin::character
