#include "desktop/voice/speech_playback.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstring>
#include <utility>
#include <variant>

namespace brovin::voice {
namespace {

using std::chrono::milliseconds;

/// The synthesizer needs a few for its first sound. To begin with silence instead would cost more: the device
/// takes a good deal of it at once.
constexpr milliseconds kFirstWait{20};

constexpr milliseconds kShortestSleep{5};
constexpr milliseconds kLongestSleep{100};

QAudioFormat speechFormat() {
    QAudioFormat format;
    format.setSampleRate(static_cast<int>(kSpeechRate));
    format.setChannelCount(1);
    format.setSampleFormat(QAudioFormat::Int16);
    return format;
}

} // namespace

SpeechPlayback::SpeechPlayback(std::shared_ptr<SpeechEngine> engine, character::VoiceListener& listener)
    : engine_(std::move(engine)), stream_(std::make_shared<SpeechStream>()), listener_(&listener) {
    timer_.setSingleShot(true);
    timer_.setTimerType(Qt::PreciseTimer);
    QObject::connect(&timer_, &QTimer::timeout, this, [this] { tick(); });
}

SpeechPlayback::~SpeechPlayback() {
    silence();
}

bool SpeechPlayback::start(SpeechJob job) {
    job.stream = stream_;
    engine_->speak(std::move(job)); // it works while the device is being opened
    sink_ = std::make_unique<SoundSink>(speechFormat(), [this](std::span<char> bytes) { fill(bytes); });
    if (!sink_->start()) {
        silence();
        return false;
    }
    timer_.start(kShortestSleep);
    return true;
}

void SpeechPlayback::silence() {
    listener_ = nullptr;
    timer_.stop();
    sink_.reset();
    stream_->cancel();
    engine_->wake();
}

void SpeechPlayback::fill(std::span<char> bytes) {
    if (played_ == 0)
        stream_->awaitFirst(kFirstWait);
    std::vector<std::int16_t> samples(bytes.size() / sizeof(std::int16_t));
    std::vector<SpeechEvent> events;
    const SpeechStream::Taken taken = stream_->take(samples, events);
    if (taken.roomAgain)
        engine_->wake();
    std::memcpy(bytes.data(), samples.data(), bytes.size());
    schedule(std::move(events));
    played_ += static_cast<std::int64_t>(taken.samples);
    if (taken.samples == samples.size())
        return;
    if (end_ < 0 && stream_->over())
        end_ = played_;
    const auto missing = static_cast<std::int64_t>(samples.size() - taken.samples);
    played_ += missing;
    gaps_ += missing;
}

void SpeechPlayback::schedule(std::vector<SpeechEvent> events) {
    for (SpeechEvent& event : events) {
        event.sample += gaps_;
        due_.push_back(std::move(event));
    }
}

void SpeechPlayback::tick() {
    const std::int64_t heard = sink_->heard().count() * kSpeechRate / 1'000'000;
    if (sink_->lost())
        takeUnheard(heard);
    if (tellUpTo(heard))
        arm(heard);
}

/// Without a device nobody asks for the samples, but what lies among them is still to be told.
void SpeechPlayback::takeUnheard(std::int64_t heard) {
    std::array<char, 4096> scrap{};
    while (end_ < 0 && played_ < heard)
        fill(scrap);
}

/// False: that was all, or the listener wants no more.
bool SpeechPlayback::tellUpTo(std::int64_t heard) {
    telling_ = true;
    while (listener_ != nullptr && !due_.empty() && due_.front().sample <= heard) {
        const SpeechEvent event = std::move(due_.front());
        due_.pop_front();
        tell(event);
    }
    if (listener_ != nullptr && end_ >= 0 && heard >= end_ && due_.empty()) {
        character::VoiceListener* const listener = listener_;
        silence();
        listener->speechEnded();
    }
    telling_ = false;
    return listener_ != nullptr;
}

void SpeechPlayback::tell(const SpeechEvent& event) {
    if (const auto* const word = std::get_if<WordBegins>(&event.what))
        listener_->wordReached(word->offset);
    else if (const auto* const sound = std::get_if<SoundBegins>(&event.what))
        listener_->soundReached(sound->ipa);
    else if (const auto* const bookmark = std::get_if<BookmarkPassed>(&event.what))
        listener_->bookmarkReached(bookmark->number);
}

void SpeechPlayback::arm(std::int64_t heard) {
    milliseconds sleep = kLongestSleep;
    const auto until = [&](std::int64_t sample) {
        return milliseconds{(sample - heard) * 1000 / kSpeechRate + 1};
    };
    if (!due_.empty())
        sleep = until(due_.front().sample);
    else if (end_ >= 0)
        sleep = until(end_);
    timer_.start(std::clamp(sleep, kShortestSleep, kLongestSleep));
}

} // namespace brovin::voice
