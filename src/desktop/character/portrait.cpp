#include "desktop/character/portrait.h"

#include "character/letter_case.h"

#include <utility>

namespace brovin::desktop {
namespace {

using character::Milliseconds;
using character::Moment;

/// A character of a stranger's may wave for ever.
constexpr Milliseconds kLongestWave{8'000};

/// The greetings of the standard set; the first that a character has.
std::optional<std::uint32_t> findGreeting(const character::CharacterData& data) {
    for (const char* const name : {"wave", "greet"})
        for (std::uint32_t i = 0; i < data.animations.size(); ++i)
            if (!data.animations[i].frames.empty() && character::foldedCase(data.animations[i].name) == name)
                return i;
    return std::nullopt;
}

} // namespace

Portrait::Portrait(std::shared_ptr<const character::CharacterData> data, platform::Random& chance)
    : data_(std::move(data)), situations_(*data_), images_(data_->images), painter_(*data_, images_),
      performer_({*data_, situations_, chance, *this, sounds_}), waving_(findGreeting(*data_)) {
    performer_.poseNeutral();
}

std::optional<std::chrono::milliseconds> Portrait::wave(std::chrono::milliseconds since) {
    if (!waving_)
        return std::nullopt;
    if (!std::exchange(begun_, true))
        performer_.perform(*waving_);
    const Moment now{since};
    const character::Wake next = performer_.advance(now, character::Haste::None);
    if (next && performer_.busy() && since < kLongestWave)
        return *next - now;
    waving_.reset();
    performer_.poseNeutral();
    return std::nullopt;
}

void Portrait::showFrame(const character::Frame& frame, const character::MouthOverlay* mouth) {
    painter_.paint(frame, mouth, canvas_);
    picture_.width = canvas_.width;
    picture_.height = canvas_.height;
    picture_.pixels = canvas_.pixels;
}

} // namespace brovin::desktop
