#pragma once

#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <mutex>
#include <span>
#include <string>
#include <variant>
#include <vector>

namespace brovin::voice {

/// Samples a second of everything that is spoken; one channel of 16 bits.
inline constexpr std::int64_t kSpeechRate = 22'050;

struct WordBegins {
    std::size_t offset = 0; ///< bytes of spoken text before it
};
struct SoundBegins {
    std::string ipa; ///< empty: a silence
};
struct BookmarkPassed {
    std::int32_t number = 0;
};

/// Something that is heard at a sample, counted from the beginning of the statement.
struct SpeechEvent {
    std::int64_t sample = 0;
    std::variant<WordBegins, SoundBegins, BookmarkPassed> what;
};

/// What has been synthesised of one statement and not been played yet. One thread writes, another reads.
class SpeechStream {
public:
    // The writer's side.

    /// Samples in order, and the events among them and shortly behind. False: nobody listens any more.
    bool append(std::span<const std::int16_t> samples, std::vector<SpeechEvent> events);
    bool appendSilence(std::int64_t samples);
    void finish();
    /// Whether there is enough for now.
    [[nodiscard]] bool full() const;
    [[nodiscard]] bool cancelled() const;
    [[nodiscard]] std::int64_t written() const;

    // The reader's side.

    struct Taken {
        std::size_t samples = 0;
        bool roomAgain = false; ///< it was full, and is not any more
    };
    /// Takes as many samples as there are; moves the events among them to the end of `events`.
    Taken take(std::span<std::int16_t> samples, std::vector<SpeechEvent>& events);
    /// Nothing is left, and nothing will come.
    [[nodiscard]] bool over() const;
    /// Waits until there is something to take, but not longer than this.
    void awaitFirst(std::chrono::milliseconds longest);
    void cancel();

private:
    [[nodiscard]] std::int64_t left() const { return written_ - taken_; }

    mutable std::mutex mutex_;
    std::condition_variable changed_;
    std::deque<std::int16_t> samples_;
    std::deque<SpeechEvent> events_; ///< by sample
    std::int64_t written_ = 0;
    std::int64_t taken_ = 0;
    bool finished_ = false;
    bool cancelled_ = false;
};

} // namespace brovin::voice
