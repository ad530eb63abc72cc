// What the module of the voice and the sounds is entered by.
#include "desktop/character/character_audio.h"
#include "desktop/voice/espeak_voice.h"
#include "desktop/voice/sound_player.h"

using namespace brovin;

extern "C" void brovinMakeAudio(const std::shared_ptr<const character::CharacterData>& data,
                                desktop::CharacterAudio& audio) {
    auto own = std::make_unique<voice::EspeakVoice>(*data);
    auto sound = std::make_unique<voice::SoundPlayer>(data);
    voice::EspeakVoice* const speaks = own.get(); // both live as long as what is returned
    voice::SoundPlayer* const sounds = sound.get();
    audio = {std::move(own), std::move(sound),
             [speaks](character::LanguageId language) { speaks->choice().setLanguageId(language); },
             [speaks](const std::string& mode) { speaks->choice().setTtsModeId(mode); },
             [speaks, sounds](const platform::Loudness& loudness) {
                 speaks->setLoudness(loudness.voice);
                 sounds->setLoudness(loudness.sounds);
             }};
}
