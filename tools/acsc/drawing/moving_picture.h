#pragma once

#include "acsc/problems.h"
#include "character/character_data.h"

#include <QString>

namespace brovin::acsc {

/// Writes an animation of a compiled character as an animated PNG that repeats itself: frame after frame as
/// it plays when every draw takes the likeliest way, once round where it loops, at most 500. Readers without
/// animation show its first frame.
void exportAnimation(const character::CharacterData& data, const QString& animation, const QString& path,
                     Problems& problems);

} // namespace brovin::acsc
