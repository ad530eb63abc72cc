#pragma once

#include "acsc/movement/pose.h"
#include "acsc/problems.h"
#include "acsc/sources/animation_source.h"

#include <vector>

namespace brovin::acsc {

/// The pose of every frame of an animation of the rig, by its tracks.
[[nodiscard]] std::vector<Pose> posesOf(const AnimationSource& animation, const Rig& rig);

/// Reports where the first frame, the one on which the animation stands, and the end of the way back do not
/// have the poses that they must have.
void checkEnds(const AnimationSource& animation, const std::vector<Pose>& poses, const Rig& rig,
               Problems& problems);

/// How far, in pixels, any part that is seen in both poses moves from one to the other: the greatest way of a
/// corner of a part's bounds.
struct Jump {
    double pixels = 0;
    std::size_t part = 0;
};
[[nodiscard]] Jump jumpBetween(const Pose& a, const Pose& b, const Rig& rig);

} // namespace brovin::acsc
