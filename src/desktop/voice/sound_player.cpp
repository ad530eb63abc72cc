#include "desktop/voice/sound_player.h"

#include "voice/soften.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace brovin::voice {
namespace {

/// The device is given this much time to play the end of a sound before it is closed.
constexpr std::chrono::milliseconds kTail{1000};

} // namespace

SoundPlayer::SoundPlayer(std::shared_ptr<const character::CharacterData> character)
    : character_(std::move(character)) {
    over_.setSingleShot(true);
    QObject::connect(&over_, &QTimer::timeout, &over_, [this] { stop(); });
    QObject::connect(&feed_, &QTimer::timeout, &feed_, [this] { sink_->feed(); });
}

character::Milliseconds SoundPlayer::play(std::uint32_t sound) {
    stop();
    if (loudness_ == 0 || sound >= character_->sounds.size())
        return {};
    auto wave = readWave(character_->sounds[sound].wave.view());
    if (!wave)
        return {};
    sound_ = std::move(*wave);
    next_ = 0;
    sink_ = std::make_unique<SoundSink>(SoundFormat{sound_.rate, sound_.channels},
                                        [this](std::span<std::int16_t> samples) { return fill(samples); });
    if (!sink_->start()) {
        sink_.reset();
        return {};
    }
    feed_.start(SoundSink::kFeedInterval);
    over_.start(sound_.length() + kTail);
    return sound_.length();
}

void SoundPlayer::stop() {
    over_.stop();
    feed_.stop();
    sink_.reset();
}

/// Behind the sound comes silence, so that a short one begins too.
std::size_t SoundPlayer::fill(std::span<std::int16_t> samples) {
    const std::size_t count = std::min(samples.size(), sound_.samples.size() - next_);
    const auto from = sound_.samples.begin() + static_cast<std::ptrdiff_t>(next_);
    std::fill(std::copy_n(from, count, samples.begin()), samples.end(), std::int16_t{0});
    soften(samples.first(count), loudness_);
    next_ += count;
    return samples.size();
}

} // namespace brovin::voice
