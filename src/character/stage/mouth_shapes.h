#pragma once

#include "character/character_data.h"

#include <optional>
#include <string_view>

namespace brovin::character {

/// The mouth that goes with a sound, named in the International Phonetic Alphabet as speech synthesizers
/// report it: by its first letter, so that a diphthong begins with the right mouth and an affricate with its
/// stop. An empty name and a pause close the mouth; a letter that is not known opens it slightly. nullopt: no
/// sound but a remark such as "(en)"; the mouth stays as it is.
[[nodiscard]] std::optional<Mouth> mouthFor(std::string_view ipa);

} // namespace brovin::character
