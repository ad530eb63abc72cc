#pragma once

#include "acsc/problems.h"
#include "character/character_data.h"

#include <QString>

namespace brovin::acsc {

/// Writes what a compiled character does in a minute in which nobody asks anything of it, as it would on a
/// desktop where the mouse pointer goes round: a contact sheet with each picture, its time and its animation,
/// and an animated PNG unless `film` is empty. `minute` counts from 1, when it has just come. The same minute
/// is the same each time.
void writeRest(const character::CharacterData& data, int minute, const QString& sheet, const QString& film,
               Problems& problems);

} // namespace brovin::acsc
