#pragma once

#include "character/character_data.h"

#include <string>

namespace brovin::voice {

/// What makes a voice a person's own, whatever the language.
struct Timbre {
    std::string variant;      ///< the synthesizer's name for it, such as "f3"; empty: the plain voice
    int middleHertz = 106;    ///< the pitch that the variant has by itself
    int ownHertz = 106;       ///< the pitch to speak with where nothing else is asked for
    int range = 50;           ///< of the melody, 0 to 99
    int wordsPerMinute = 165; ///< where nothing else is asked for
    bool female = false;
    int loudness = 100; ///< per cent of what the variant has by itself

    bool operator==(const Timbre&) const = default;
};

/// The voice of a kind, by its number among those of its gender, from 0 on; it starts over where there are no
/// more. A neutral one is taken from the men's.
[[nodiscard]] Timbre numberedTimbre(character::Gender gender, unsigned number);

/// The character's own: the variant that the style in its file names (`manner.h`), else one of the gender,
/// age and pitch that the file says, and otherwise its very own in a stable way.
[[nodiscard]] Timbre ownTimbre(const character::CharacterData& character);

/// The timbre of a variant that the synthesizer knows, by its name.
[[nodiscard]] Timbre namedTimbre(const std::string& variant);

} // namespace brovin::voice
