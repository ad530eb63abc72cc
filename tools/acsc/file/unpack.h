#pragma once

#include "acsc/problems.h"
#include "character/character_data.h"

#include <QString>

namespace brovin::acsc {

/// Writes a character's pictures (PNG), sounds (WAV) and everything else (JSON) into a folder that is not
/// there yet, or is empty. What is written compiles again to a character that looks and behaves the same; a
/// tray icon is left out.
void unpackCharacter(const character::CharacterData& data, const QString& folder, Problems& problems);

} // namespace brovin::acsc
