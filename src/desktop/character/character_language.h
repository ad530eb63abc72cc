#pragma once

#include "character/character_data.h"

#include <QString>

namespace brovin::desktop {

/// What a character knows of languages. Where only the primary language of an identifier is known, that
/// serves.

/// Whether a number that language files give names a language.
[[nodiscard]] bool namesLanguage(long id);

/// The user's language, if characters know it, else English (US).
[[nodiscard]] character::LanguageId usersLanguage();

/// "&Hide" for a menu, in the language if it is known, else in English.
[[nodiscard]] QString hideCaption(character::LanguageId language);

[[nodiscard]] Qt::LayoutDirection writingDirection(character::LanguageId language);

} // namespace brovin::desktop
