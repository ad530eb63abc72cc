#pragma once

#include "voice/speech_stream.h"
#include "voice/utterance.h"
#include "voice/voice_catalogue.h"

#include <condition_variable>
#include <cstddef>
#include <list>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace brovin::voice {

/// A statement to be synthesised.
struct SpeechJob {
    std::shared_ptr<SpeechStream> stream;
    std::string voice;   ///< with its variant: "gmw/en-US+f3"
    std::string whisper; ///< the same voice when it whispers
    std::vector<Utterance> utterances;
    std::size_t next = 0;
};

/// Synthesises statements on a thread of its own, all of them by turns and each only as far ahead as it is
/// played. Whatever happens, the stream of each is finished in the end.
class SpeechEngine {
public:
    /// The one of the process, since the synthesizer can be had only once. It lives as long as someone uses
    /// it.
    [[nodiscard]] static std::shared_ptr<SpeechEngine> shared();

    SpeechEngine();
    ~SpeechEngine();
    SpeechEngine(const SpeechEngine&) = delete;
    SpeechEngine& operator=(const SpeechEngine&) = delete;

    /// What there is to choose from; empty when there is no synthesizer. Waits, the first time, until it is
    /// ready.
    [[nodiscard]] const VoiceCatalogue& voices();

    void speak(SpeechJob job);
    /// Some stream has room again, or has been cancelled.
    void wake();

private:
    void run();
    bool takeJob(std::unique_lock<std::mutex>& lock, SpeechJob& job);
    void work(SpeechJob& job);
    [[nodiscard]] bool sayNext(SpeechJob& job);

    std::mutex mutex_;
    std::condition_variable changed_;
    std::list<SpeechJob> jobs_;
    VoiceCatalogue voices_; ///< does not change once `ready_`
    bool ready_ = false;
    bool ending_ = false;
    std::thread thread_; ///< the last to be built
};

} // namespace brovin::voice
