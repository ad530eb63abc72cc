#pragma once

#include "character/stage/moment.h"
#include "character/stage/spoken_run.h"
#include "voice/prosody.h"
#include "voice/timbre.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace brovin::voice {

/// A bookmark in front of a character of an utterance.
struct PlacedBookmark {
    std::size_t character = 0;
    std::int32_t number = 0;
};

/// A piece of a statement that the synthesizer says in one go. Changes of style between two words are
/// commands within its text, so that the sentence keeps its melody.
struct Utterance {
    std::vector<std::int32_t> bookmarksBefore; ///< reached at the very beginning, before the pause
    character::Milliseconds pause{0};          ///< of silence before the text
    bool whispered = false;
    bool wordPauses = false;
    bool goesOn = false; ///< was cut for its length: a pause as behind a sentence is due after it
    Prosody prosody;     ///< that it begins with
    std::string text;    ///< valid UTF-8 without control characters but for the commands; may be empty
    std::vector<std::size_t> origins;      ///< of each character: bytes of spoken text before it
    std::vector<PlacedBookmark> bookmarks; ///< in order

    /// Where in the spoken text the word lies that the synthesizer sees begin at a character, counted from 0.
    [[nodiscard]] std::size_t originOf(std::size_t character) const;

    /// Whether a character stands between two words.
    [[nodiscard]] bool isBlankAt(std::size_t character) const;
};

/// Cuts a statement into utterances. Any bytes will do; what is no text is left out of what is said.
[[nodiscard]] std::vector<Utterance> makeUtterances(const std::vector<character::SpokenRun>& runs,
                                                    const Timbre& timbre);

} // namespace brovin::voice
