#pragma once

#include "character/character_data.h"
#include "character/stage/sound_output.h"
#include "character/stage/voice.h"
#include "platform/character_service.h"

#include <functional>
#include <memory>
#include <string>

namespace brovin::desktop {

/// What a character is heard by, made for it when it is loaded.
struct CharacterAudio {
    std::unique_ptr<character::Voice> voice;
    std::unique_ptr<character::SoundOutput> sound;
    /// The language to speak in; may be empty.
    std::function<void(character::LanguageId language)> setLanguage;
    /// A voice by the identifier of its own, whatever the language; may be empty. One that is not known
    /// leaves the voice as it is.
    std::function<void(const std::string& mode)> setMode;
    /// At once, also for what is being heard; may be empty.
    std::function<void(const platform::Loudness& loudness)> setLoudness;
};

using AudioMaker = std::function<CharacterAudio(const std::shared_ptr<const character::CharacterData>& data)>;

/// No voice and no sounds: balloons are paced by their text.
[[nodiscard]] CharacterAudio silentAudio(const std::shared_ptr<const character::CharacterData>& data);

} // namespace brovin::desktop
