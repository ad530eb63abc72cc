#pragma once

#include "character/character_data.h"

#include <QString>

#include <vector>

namespace brovin::acsc {

/// A loop of an animation. How much of the figure changes from one picture to the next, 0 to 1: of the pixels
/// that are in either of the two those that visibly differ.
struct LoopSeam {
    QString animation;
    double seam = 0;    ///< from the loop's last frame to its first
    double largest = 0; ///< between two frames inside of it
};

/// The loops of a character: where a frame's likeliest way leads back. The widest seam, compared with the
/// largest step inside, comes first.
[[nodiscard]] std::vector<LoopSeam> loopSeams(const character::CharacterData& data);

} // namespace brovin::acsc
