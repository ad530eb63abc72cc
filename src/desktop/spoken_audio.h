#pragma once

#include "desktop/character/character_audio.h"

namespace brovin::desktop {

/// Every character speaks with a voice of its own, on the sound server.
[[nodiscard]] CharacterAudio spokenAudio(const std::shared_ptr<const character::CharacterData>& data);

} // namespace brovin::desktop
