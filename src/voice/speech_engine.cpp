#include "voice/speech_engine.h"

#include "voice/espeak.h"

#include <algorithm>
#include <utility>

namespace brovin::voice {

std::shared_ptr<SpeechEngine> SpeechEngine::shared() {
    static std::mutex mutex;
    static std::weak_ptr<SpeechEngine> engine;
    const std::lock_guard lock(mutex);
    std::shared_ptr<SpeechEngine> result = engine.lock();
    if (!result) {
        result = std::make_shared<SpeechEngine>();
        engine = result;
    }
    return result;
}

SpeechEngine::SpeechEngine() : thread_([this] { run(); }) {}

SpeechEngine::~SpeechEngine() {
    {
        const std::lock_guard lock(mutex_);
        ending_ = true;
        for (SpeechJob& job : jobs_)
            job.stream->cancel();
    }
    changed_.notify_all();
    thread_.join();
}

const VoiceCatalogue& SpeechEngine::voices() {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [this] { return ready_; });
    return voices_;
}

void SpeechEngine::speak(SpeechJob job) {
    {
        const std::lock_guard lock(mutex_);
        jobs_.push_back(std::move(job));
    }
    changed_.notify_all();
}

void SpeechEngine::wake() {
    {
        const std::lock_guard lock(mutex_); // else it could go unheard between a look and a sleep
    }
    changed_.notify_all();
}

void SpeechEngine::run() {
    VoiceCatalogue voices = openEspeak() ? listEspeakVoices() : VoiceCatalogue{};
    std::unique_lock lock(mutex_);
    voices_ = std::move(voices);
    ready_ = true;
    changed_.notify_all();
    for (SpeechJob job; takeJob(lock, job);) {
        lock.unlock();
        work(job);
        lock.lock();
        if (job.next < job.utterances.size() && !ending_)
            jobs_.push_back(std::move(job));
    }
}

/// Waits for something to do. False: it is time to end.
bool SpeechEngine::takeJob(std::unique_lock<std::mutex>& lock, SpeechJob& job) {
    auto found = jobs_.end();
    changed_.wait(lock, [&] {
        jobs_.remove_if([](const SpeechJob& j) { return j.stream->cancelled(); });
        found = std::ranges::find_if(jobs_, [](const SpeechJob& j) { return !j.stream->full(); });
        return ending_ || found != jobs_.end();
    });
    if (ending_)
        return false;
    job = std::move(*found);
    jobs_.erase(found);
    return true;
}

void SpeechEngine::work(SpeechJob& job) {
    if (job.next < job.utterances.size() && !sayNext(job))
        job.next = job.utterances.size();
    if (job.next >= job.utterances.size())
        job.stream->finish();
}

bool SpeechEngine::sayNext(SpeechJob& job) {
    Utterance& utterance = job.utterances[job.next++];
    std::vector<SpeechEvent> events;
    for (const std::int32_t number : utterance.bookmarksBefore)
        events.push_back({job.stream->written(), BookmarkPassed{number}});
    if (utterance.pause.count() > 0)
        events.push_back({job.stream->written(), SoundBegins{}});
    if (!job.stream->append({}, std::move(events)) ||
        !job.stream->appendSilence(utterance.pause.count() * kSpeechRate / 1000))
        return false;
    const bool said =
        utterance.text.empty() && utterance.bookmarks.empty()
            ? true
            : sayByEspeak(utterance.whispered ? job.whisper : job.voice, utterance, *job.stream);
    utterance = {}; // a long statement takes as much memory as its text
    return said;
}

} // namespace brovin::voice
