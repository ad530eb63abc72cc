#pragma once

#include "acsc/problems.h"
#include "acsc/sources/character_source.h"

#include <QImage>
#include <QString>
#include <QStringList>

#include <vector>

namespace brovin::acsc {

/// The animations of these names, in the character's order; no names: all. What is not there is a problem.
[[nodiscard]] std::vector<const AnimationSource*>
chosenAnimations(const CharacterSource& source, const QStringList& names, Problems& problems);

/// Writes a PNG, or says why not.
void savePicture(const QImage& image, const QString& path, Problems& problems);

/// A contact sheet as PNG: a row an animation, every frame of the author's, on a checker of middle greys. No
/// names: all animations. Drawn in true colours, which is faster than finding a palette.
void writeSheet(const CharacterSource& source, const QString& path, const QStringList& animations,
                Problems& problems);

/// The frames of one animation: as "name-%03d.png" a picture each, else an animated picture by the command
/// ffmpeg.
void writeFilm(const CharacterSource& source, const QString& animation, const QString& path,
               Problems& problems);

} // namespace brovin::acsc
