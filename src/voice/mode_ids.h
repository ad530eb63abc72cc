#pragma once

#include "character/character_data.h"
#include "character/guid.h"

#include <optional>
#include <string_view>

namespace brovin::voice {

/// A voice that characters and programs name by an identifier, although its engine is not here.
struct Mode {
    character::LanguageId language = 0;
    character::Gender gender = character::Gender::Neutral;
    unsigned number = 0; ///< among the voices of that language and gender
};

[[nodiscard]] std::optional<Mode> knownMode(const character::Guid& guid);

/// Braces are optional, upper and lower case make no difference. nullopt: no identifier.
[[nodiscard]] std::optional<character::Guid> parseGuid(std::string_view text);

} // namespace brovin::voice
