#pragma once

#include <cstddef>
#include <vector>

namespace brovin::acsc {

/// How a part is moved from where it was drawn: pixels, degrees clockwise, all about the part's pivot.
struct Placement {
    double x = 0;
    double y = 0;
    double rotate = 0;
    double scaleX = 1;
    double scaleY = 1;
    double opacity = 1;

    bool operator==(const Placement&) const = default;
};

/// The fields of a placement in a fixed order, for whatever treats them alike.
inline constexpr double Placement::*kPlacementFields[] = {&Placement::x,      &Placement::y,
                                                          &Placement::rotate, &Placement::scaleX,
                                                          &Placement::scaleY, &Placement::opacity};
inline constexpr std::size_t kPlacementFieldCount = 6;

/// The whole rig at one moment.
struct Pose {
    std::vector<Placement> parts;     ///< by part
    std::vector<std::size_t> choices; ///< by switch

    bool operator==(const Pose&) const = default;
};

} // namespace brovin::acsc
