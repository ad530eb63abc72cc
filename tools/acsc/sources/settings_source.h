#pragma once

#include "acsc/drawing/palette.h"
#include "acsc/sources/json_source.h"
#include "character/character_data.h"

#include <optional>

namespace brovin::acsc {

/// The members of `character.json` that say who the character is: identifier, versions, texts, voice and
/// balloon.
void readSettings(JsonSource& character, character::CharacterData& data);

[[nodiscard]] PaletteWishes readPaletteWishes(JsonSource palette);

/// The identifier of a language such as "en" or "pt-BR", or "0x0409"; nullopt: unknown.
[[nodiscard]] std::optional<character::LanguageId> languageId(const QString& name);
/// The other way; "0x1234" for those without a name.
[[nodiscard]] QString languageName(character::LanguageId language);

} // namespace brovin::acsc
