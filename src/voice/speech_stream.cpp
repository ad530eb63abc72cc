#include "voice/speech_stream.h"

#include <algorithm>
#include <utility>

namespace brovin::voice {
namespace {

/// More than half a minute ahead nobody needs.
constexpr std::int64_t kPlenty = 30 * kSpeechRate;

} // namespace

bool SpeechStream::append(std::span<const std::int16_t> samples, std::vector<SpeechEvent> events) {
    const std::lock_guard lock(mutex_);
    if (cancelled_)
        return false;
    samples_.insert(samples_.end(), samples.begin(), samples.end());
    written_ += static_cast<std::int64_t>(samples.size());
    for (SpeechEvent& event : events) {
        event.sample = std::max(event.sample, taken_);
        const auto behind =
            std::upper_bound(events_.begin(), events_.end(), event.sample,
                             [](std::int64_t at, const SpeechEvent& e) { return at < e.sample; });
        events_.insert(behind, std::move(event));
    }
    changed_.notify_all();
    return true;
}

bool SpeechStream::appendSilence(std::int64_t samples) {
    return append(std::vector<std::int16_t>(static_cast<std::size_t>(samples)), {});
}

void SpeechStream::finish() {
    const std::lock_guard lock(mutex_);
    finished_ = true;
    changed_.notify_all();
}

bool SpeechStream::full() const {
    const std::lock_guard lock(mutex_);
    return left() >= kPlenty;
}

bool SpeechStream::cancelled() const {
    const std::lock_guard lock(mutex_);
    return cancelled_;
}

std::int64_t SpeechStream::written() const {
    const std::lock_guard lock(mutex_);
    return written_;
}

SpeechStream::Taken SpeechStream::take(std::span<std::int16_t> samples, std::vector<SpeechEvent>& events) {
    const std::lock_guard lock(mutex_);
    const bool wasFull = left() >= kPlenty;
    const std::size_t count = std::min(samples.size(), samples_.size());
    const auto end = samples_.begin() + static_cast<std::ptrdiff_t>(count);
    std::copy(samples_.begin(), end, samples.begin());
    samples_.erase(samples_.begin(), end);
    taken_ += static_cast<std::int64_t>(count);
    const bool last = finished_ && samples_.empty(); // what lies behind the last sample comes with it
    while (!events_.empty() && (last || events_.front().sample < taken_)) {
        events.push_back(std::move(events_.front()));
        events_.pop_front();
    }
    return {count, wasFull && left() < kPlenty};
}

bool SpeechStream::over() const {
    const std::lock_guard lock(mutex_);
    return finished_ && samples_.empty() && events_.empty();
}

void SpeechStream::awaitFirst(std::chrono::milliseconds longest) {
    std::unique_lock lock(mutex_);
    changed_.wait_for(lock, longest, [this] { return finished_ || cancelled_ || written_ > 0; });
}

void SpeechStream::cancel() {
    const std::lock_guard lock(mutex_);
    cancelled_ = true;
    samples_.clear();
    events_.clear();
    changed_.notify_all();
}

} // namespace brovin::voice
