#include "desktop/voice/speech_playback.h"

#include "voice/soften.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <iterator>
#include <utility>
#include <variant>

namespace brovin::voice {
namespace {

using std::chrono::milliseconds;

/// The synthesizer needs a few for its first sound. To begin with silence instead would cost more: the device
/// takes a good deal of it at once.
constexpr milliseconds kFirstWait{20};

constexpr milliseconds kShortestSleep{5};
constexpr milliseconds kLongestSleep = SoundSink::kFeedInterval;

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
    sink_ = std::make_unique<SoundSink>(SoundFormat{static_cast<int>(kSpeechRate), 1},
                                        [this](std::span<std::int16_t> samples) { return fill(samples); });
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

/// What is said is handed over as it is made. Three things can stop it short. Nothing is made yet: the first
/// time it waits a little, later it hands over what there is, for the device asks again and a wait would make
/// it stutter. The synthesizer has stopped because nobody took what it had: it is woken as soon as there is
/// room. The statement is over: from there on comes silence, since the device plays only what it is pushed on
/// to, and the end is to be heard. Counting by samples keeps words and lips in time with all that.
std::size_t SpeechPlayback::fill(std::span<std::int16_t> samples) {
    if (played_ == 0)
        stream_->awaitFirst(kFirstWait);
    std::vector<SpeechEvent> events;
    const SpeechStream::Taken taken = stream_->take(samples, events);
    if (taken.roomAgain)
        engine_->wake();
    std::move(events.begin(), events.end(), std::back_inserter(due_));
    soften(samples.first(taken.samples), loudness_);
    played_ += static_cast<std::int64_t>(taken.samples);
    if (end_ < 0 && stream_->over())
        end_ = played_;
    starved_ = end_ < 0 && taken.samples < samples.size();
    if (end_ < 0)
        return taken.samples;
    std::fill(samples.begin() + static_cast<std::ptrdiff_t>(taken.samples), samples.end(), std::int16_t{0});
    return samples.size();
}

void SpeechPlayback::tick() {
    sink_->feed();
    const std::int64_t heard = sink_->heard().count() * kSpeechRate / 1'000'000;
    if (sink_->lost())
        takeUnheard(heard);
    if (tellUpTo(heard))
        arm(heard);
}

/// Without a device nobody asks for the samples, but what lies among them is still to be told.
void SpeechPlayback::takeUnheard(std::int64_t heard) {
    std::array<std::int16_t, 2048> scrap{};
    for (std::size_t taken = 1; taken > 0 && end_ < 0 && played_ < heard;)
        taken = fill(scrap);
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
    milliseconds sleep = starved_ ? kShortestSleep : kLongestSleep;
    const auto until = [&](std::int64_t sample) {
        return milliseconds{(sample - heard) * 1000 / kSpeechRate + 1};
    };
    if (!due_.empty())
        sleep = std::min(sleep, until(due_.front().sample));
    else if (end_ >= 0)
        sleep = until(end_);
    timer_.start(std::clamp(sleep, kShortestSleep, kLongestSleep));
}

} // namespace brovin::voice
