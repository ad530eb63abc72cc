#pragma once

#include "character/stage/gait.h"
#include "character/stage/moment.h"
#include "character/stage/surface.h"

namespace brovin::character {

/// A way from one place to another, gone as the character goes. Coordinates are within 16 bits.
class Glide {
public:
    /// `time` is above zero.
    Glide(Place from, Place to, Moment start, Milliseconds time, const Gait& gait);

    [[nodiscard]] Place at(Moment now) const;
    [[nodiscard]] bool over(Moment now) const { return now >= end(); }
    [[nodiscard]] Moment end() const { return start_ + time_; }

    /// When it is worth looking again: not more often than screens show it, nor before another pixel is
    /// reached.
    [[nodiscard]] Moment nextStep(Moment now) const;

private:
    Place from_;
    Place to_;
    Moment start_;
    Milliseconds time_;
    const Gait* gait_;
    double length_; ///< of the straight way, pixels
};

} // namespace brovin::character
