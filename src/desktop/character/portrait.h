#pragma once

#include "character/bitmap.h"
#include "character/character_data.h"
#include "character/image_store.h"
#include "character/stage/performer.h"
#include "platform/character_gallery.h"
#include "platform/random.h"

#include <memory>
#include <optional>

namespace brovin::desktop {

/// A character that is nothing but a picture: it stands there, and waves, without a sound.
class Portrait final : public platform::CharacterPortrait, private character::Surface {
public:
    Portrait(std::shared_ptr<const character::CharacterData> data, platform::Random& chance);

    [[nodiscard]] bool canWave() const { return waving_.has_value(); }

    std::optional<std::chrono::milliseconds> wave(std::chrono::milliseconds since) override;
    [[nodiscard]] const platform::Picture& picture() const override { return picture_; }

private:
    class Silence final : public character::SoundOutput {
        character::Milliseconds play(std::uint32_t /*sound*/) override { return character::Milliseconds{0}; }
        void stop() override {}
    };

    void showFrame(const character::Frame& frame, const character::MouthOverlay* mouth) override;
    void setPlace(character::Place /*place*/) override {}
    void setShown(character::Shown /*shown*/) override {}

    std::shared_ptr<const character::CharacterData> data_;
    character::SituationTable situations_;
    character::ImageStore images_;
    character::FramePainter painter_;
    character::Bitmap canvas_;
    platform::Picture picture_;
    Silence silence_;
    character::SoundEffects sounds_{silence_};
    character::Performer performer_;
    std::optional<std::uint32_t> waving_; ///< the animation
    bool begun_ = false;
};

} // namespace brovin::desktop
