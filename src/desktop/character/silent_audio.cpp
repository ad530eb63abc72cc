#include "desktop/character/character_audio.h"

#include "character/stage/silence.h"

namespace brovin::desktop {

CharacterAudio silentAudio(const std::shared_ptr<const character::CharacterData>& /*data*/) {
    return {std::make_unique<character::NoVoice>(), std::make_unique<character::NoSounds>(), {}, {}, {}};
}

} // namespace brovin::desktop
