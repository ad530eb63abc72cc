#pragma once

#include "acsc/problems.h"
#include "acsc/sources/character_source.h"

#include <QStringList>

namespace brovin::acsc {

/// Where pictures touch the edges of the frame, beyond which they are cut off: "Wave: left in frames 3, 4,
/// 5".
[[nodiscard]] QStringList touchedEdges(const CharacterSource& source, Problems& problems);

} // namespace brovin::acsc
