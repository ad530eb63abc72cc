#include "desktop/spoken_audio.h"

#include "posix/places.h"

#include <dlfcn.h>

namespace brovin::desktop {
namespace {

using MakeAudio = void (*)(const std::shared_ptr<const character::CharacterData>& data,
                           CharacterAudio& audio);

MakeAudio fromModule() {
    static void* const module =
        ::dlopen(posix::moduleFile(BROVIN_AUDIO_MODULE).c_str(), RTLD_NOW | RTLD_LOCAL);
    return module == nullptr ? nullptr : reinterpret_cast<MakeAudio>(::dlsym(module, "brovinMakeAudio"));
}

} // namespace

CharacterAudio spokenAudio(const std::shared_ptr<const character::CharacterData>& data) {
    const MakeAudio make = fromModule();
    if (make == nullptr)
        return silentAudio(data);
    CharacterAudio audio;
    make(data, audio);
    return audio;
}

} // namespace brovin::desktop
