#pragma once

#include "character/stage/moment.h"
#include "character/stage/speech_tags.h"
#include "character/stage/spoken_run.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace brovin::character {

/// A stretch of a statement that appears, or passes, as one: a word, a bookmark or a silence.
struct ReadingStep {
    enum class Kind : std::uint8_t { Word, Bookmark, Silence };

    Kind kind = Kind::Word;
    std::size_t spokenAt = 0; ///< where it begins, in bytes of the spoken text
    std::size_t shownEnd = 0; ///< of a word: bytes of the shown text up to its end
    Milliseconds time{0};     ///< that it takes where no voice says it
    std::int32_t bookmark = 0;
};

/// A statement, made ready to be spoken and shown.
struct SpeechPlan {
    std::vector<SpokenRun> runs;
    std::string shown;
    std::vector<ReadingStep> steps; ///< in order; words are what white space divides
    bool hasWords = false;          ///< whether there is anything to show
};

/// `base` is how the character speaks where no tag says otherwise; tags change that up to the statement's
/// end.
[[nodiscard]] SpeechPlan planSpeech(const std::vector<SpeechSegment>& segments, const VoiceStyle& base);

/// How long a reader takes over a word of so many letters. A script without blanks makes words of any length;
/// the time for one is bounded.
[[nodiscard]] Milliseconds readingTime(std::size_t letters, const VoiceStyle& style);

} // namespace brovin::character
