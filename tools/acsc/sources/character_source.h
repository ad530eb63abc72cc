#pragma once

#include "acsc/drawing/palette.h"
#include "acsc/problems.h"
#include "acsc/sources/animation_source.h"
#include "acsc/sources/rig.h"
#include "character/character_data.h"

#include <QDir>
#include <QSize>
#include <QStringList>

#include <memory>
#include <optional>
#include <vector>

namespace brovin::acsc {

/// A character's folder, read and checked, nothing drawn yet.
struct CharacterSource {
    QDir folder;
    QSize size;
    character::CharacterData data; ///< all but palette, states, animations, images and sounds
    std::unique_ptr<Rig> rig;      ///< null: all pictures are files
    PaletteWishes palette;
    struct StateSource {
        QString name;
        QStringList animations;
    };
    std::vector<StateSource> states;
    std::vector<AnimationSource> animations;
};

/// Reads `character.json`, the drawing and all files of animations. With problems the result is good for
/// nothing.
[[nodiscard]] CharacterSource readCharacterSource(const QString& folder, Problems& problems);

} // namespace brovin::acsc
