#pragma once

#include "desktop/character/character_audio.h"

namespace brovin::desktop {

/// Every character speaks with a voice of its own, on the sound server. Voice and sounds come from a module
/// that is loaded with the first character, because over twenty libraries stand behind it; once loaded it
/// stays. Where it, or one of them, is not installed, characters are silent.
[[nodiscard]] CharacterAudio spokenAudio(const std::shared_ptr<const character::CharacterData>& data);

} // namespace brovin::desktop
