#pragma once

#include "acsc/problems.h"
#include "acsc/sources/character_source.h"

#include <QString>

#include <vector>

namespace brovin::acsc {

/// How far a part jumps between two frames that are shown one after the other.
struct Step {
    QString what; ///< "Wave 3 > 4"
    double pixels = 0;
    QString part;
};

/// Of each animation the largest step along every way through it (in order, by branches, by exits), and every
/// step from where an animation stands to the return that follows by name; the largest first.
[[nodiscard]] std::vector<Step> largestSteps(const CharacterSource& source, Problems& problems);

} // namespace brovin::acsc
