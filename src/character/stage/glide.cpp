#include "character/stage/glide.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace brovin::character {
namespace {

constexpr Milliseconds kScreenStep{16};
/// How often a way may lead from one side to the other and back.
constexpr double kMostBends = 10;

} // namespace

Glide::Glide(Place from, Place to, Moment start, Milliseconds time, const Gait& gait)
    : from_(from), to_(to), start_(start), time_(time), gait_(&gait),
      length_(std::hypot(to.x - from.x, to.y - from.y)) {}

Place Glide::at(Moment now) const {
    if (over(now) || length_ == 0)
        return to_;
    const double time = static_cast<double>((now - start_).count()) / static_cast<double>(time_.count());
    const GaitKey key = gait_->at(time);
    const double along = key.way + key.swing * gait_->swingOn(length_) / length_;
    const double beside = gait_->aside(time) * gait_->widthOn(length_) / length_;
    const int x = to_.x - from_.x;
    const int y = to_.y - from_.y;
    // Above the way, whether it leads to the left or to the right.
    const double upwards = x < 0 || (x == 0 && y > 0) ? -beside : beside;
    return {from_.x + static_cast<int>(std::lround(x * along + y * upwards)),
            from_.y + static_cast<int>(std::lround(y * along - x * upwards))};
}

Moment Glide::nextStep(Moment now) const {
    const int straight = std::max(std::abs(to_.x - from_.x), std::abs(to_.y - from_.y));
    const double bends = kMostBends * (gait_->swingOn(length_) + gait_->widthOn(length_));
    const Milliseconds pixelTime = time_ / std::max(straight + static_cast<int>(bends), 1);
    return std::min(end(), now + std::max(kScreenStep, pixelTime));
}

} // namespace brovin::character
