#pragma once

#include "acsc/problems.h"
#include "acsc/sources/character_source.h"

#include <QString>
#include <QStringList>

#include <vector>

namespace brovin::acsc {

/// How alike two animations look in black on white: the pixels that are in both of those that are in either,
/// 0 to 1.
struct Likeness {
    QString one;
    QString other;
    double overlap = 0;
};

/// A picture as PNG in which each animation is seen in black on white, with its name below: on the frame on
/// which it stands, in the middle of its loop, or else on the one that is least like its first. What cannot
/// be told from there is badly drawn. No names: all animations. Returns all pairs of them, the most alike
/// first.
std::vector<Likeness> writeSilhouettes(const CharacterSource& source, const QString& path,
                                       const QStringList& animations, Problems& problems);

} // namespace brovin::acsc
