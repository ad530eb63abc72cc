#pragma once

#include "acsc/movement/pose.h"
#include "acsc/sources/animation_source.h"

#include <QString>

#include <cstdint>
#include <optional>
#include <vector>

namespace brovin::acsc {

/// One frame as the file is to have it.
struct RouteFrame {
    std::optional<int> source; ///< the author's frame; nullopt: an end point, which is never shown
    std::vector<BranchSource> branches;
    std::optional<int> exit;
};

/// The order in which the file has an animation's frames. The frame on which the animation stands comes last,
/// the way back before it, and an end point, where it is needed, behind all.
///
/// Exits that the author has not given lead to the end so that nothing jumps: from where the animation stands
/// and from its loop by the whole of the author's way back, and before that by the shortest way, forwards,
/// backwards, or over to a frame that looks almost the same. `poses` is empty for an animation of picture
/// files.
[[nodiscard]] std::vector<RouteFrame> planRoute(const AnimationSource& animation,
                                                const std::vector<Pose>& poses, const Rig* rig);

/// The author's frames, divided by commas, that are shown neither in playing nor in leaving; empty: none.
[[nodiscard]] QString neverSeen(const std::vector<RouteFrame>& route);

} // namespace brovin::acsc
