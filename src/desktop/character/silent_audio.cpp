#include "desktop/character/character_audio.h"

namespace brovin::desktop {
namespace {

class NoVoice final : public character::Voice {
public:
    [[nodiscard]] bool available() const override { return false; }
    [[nodiscard]] bool say(const std::vector<character::SpokenRun>& /*runs*/,
                           character::VoiceListener& /*listener*/) override {
        return false;
    }
    void silence() override {}
};

class NoSounds final : public character::SoundOutput {
public:
    character::Milliseconds play(std::uint32_t /*sound*/) override { return character::Milliseconds{0}; }
    void stop() override {}
};

} // namespace

CharacterAudio silentAudio(const std::shared_ptr<const character::CharacterData>& /*data*/) {
    return {std::make_unique<NoVoice>(), std::make_unique<NoSounds>(), {}, {}, {}};
}

} // namespace brovin::desktop
