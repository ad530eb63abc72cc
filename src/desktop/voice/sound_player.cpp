#include "desktop/voice/sound_player.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace brovin::voice {
namespace {

/// The device is given this much time to play the end of a sound before it is closed.
constexpr std::chrono::milliseconds kTail{1000};

QAudioFormat formatOf(const Sound& sound) {
    QAudioFormat format;
    format.setSampleRate(sound.rate);
    format.setChannelCount(sound.channels);
    format.setSampleFormat(QAudioFormat::Int16);
    return format;
}

} // namespace

SoundPlayer::SoundPlayer(std::shared_ptr<const character::CharacterData> character)
    : character_(std::move(character)) {
    over_.setSingleShot(true);
    QObject::connect(&over_, &QTimer::timeout, &over_, [this] { stop(); });
}

character::Milliseconds SoundPlayer::play(std::uint32_t sound) {
    stop();
    if (sound >= character_->sounds.size())
        return {};
    auto wave = readWave(character_->sounds[sound].wave.view());
    if (!wave)
        return {};
    sound_ = std::move(*wave);
    next_ = 0;
    sink_ = std::make_unique<SoundSink>(formatOf(sound_), [this](std::span<char> bytes) { fill(bytes); });
    if (!sink_->start()) {
        sink_.reset();
        return {};
    }
    over_.start(sound_.length() + kTail);
    return sound_.length();
}

void SoundPlayer::stop() {
    over_.stop();
    sink_.reset();
}

void SoundPlayer::fill(std::span<char> bytes) {
    const std::size_t left = sound_.samples.size() * sizeof(std::int16_t) - next_;
    const std::size_t count = std::min(bytes.size(), left);
    if (count > 0)
        std::memcpy(bytes.data(), std::as_bytes(std::span(sound_.samples)).subspan(next_).data(), count);
    std::fill(bytes.begin() + static_cast<std::ptrdiff_t>(count), bytes.end(), '\0');
    next_ += count;
}

} // namespace brovin::voice
