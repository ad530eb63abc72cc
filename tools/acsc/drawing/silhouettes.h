#pragma once

#include "acsc/problems.h"
#include "acsc/sources/character_source.h"

#include <QString>
#include <QStringList>

namespace brovin::acsc {

/// A picture as PNG in which each animation is seen in black on white, with its name below: on the frame on
/// which it stands, in the middle of its loop, or half way through. What cannot be told from there is badly
/// drawn. No names: all animations.
void writeSilhouettes(const CharacterSource& source, const QString& path, const QStringList& animations,
                      Problems& problems);

} // namespace brovin::acsc
