#pragma once

#include "character/stage/moment.h"
#include "character/stage/surface.h"

namespace brovin::character {

/// A straight way from one place to another, gone gently at both ends. Coordinates are within 16 bits.
class Glide {
public:
    /// `time` is above zero.
    Glide(Place from, Place to, Moment start, Milliseconds time)
        : from_(from), to_(to), start_(start), time_(time) {}

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
};

} // namespace brovin::character
