#pragma once

#include "character/character_data.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

namespace brovin::character {

/// A moment of a way from one place to another.
struct GaitKey {
    double at;    ///< of the time, 0 to 1
    double way;   ///< how much of the way is behind it
    double swing; ///< how far beyond that it is, in units of the gait's swing
};

/// How a character glides: when it is how far along its way, and how far beside it. At the beginning and at
/// the end it is on the way and not beside it.
struct Gait {
    std::string_view state; ///< the file's state that lists the animations in whose pose it glides so
    std::span<const GaitKey> keys;
    double (*ease)(double part);  ///< between two keys; from 0 to 0, from 1 to 1
    double (*aside)(double time); ///< -1 to 1; above the way, or left of it where that is upright
    double swing;                 ///< pixels at most, of what the keys say
    double width;                 ///< pixels at most, of what `aside` says

    /// Of those two, what a way of this length in pixels has: on a short one all is small.
    [[nodiscard]] double swingOn(double length) const;
    [[nodiscard]] double widthOn(double length) const;
    /// At a part of the time, 0 to 1: where between two keys it is.
    [[nodiscard]] GaitKey at(double time) const;
};

/// That of the states "Fluttering", "Sailing", "Drifting" and "Jolting" which lists the animation, or else
/// one that sets out and arrives gently and goes straight.
[[nodiscard]] const Gait& gaitIn(const CharacterData& character, std::optional<std::uint32_t> animation);

} // namespace brovin::character
