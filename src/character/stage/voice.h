#pragma once

#include "character/stage/spoken_run.h"

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace brovin::character {

/// Hears how far a voice has got, at the moments at which it can be heard.
class VoiceListener {
public:
    /// A word begins, `offset` bytes from the start of the first run's text.
    virtual void wordReached(std::size_t offset) = 0;

    /// A sound begins, by its name in the International Phonetic Alphabet; empty: a silence.
    virtual void soundReached(std::string_view ipa) = 0;

    virtual void bookmarkReached(std::int32_t bookmark) = 0;

    /// All is said, or the voice has failed on the way.
    virtual void speechEnded() = 0;

protected:
    ~VoiceListener() = default;
};

/// The voice that the character speaks with.
class Voice {
public:
    virtual ~Voice() = default;

    /// Whether `say` can be expected to work.
    [[nodiscard]] virtual bool available() const = 0;

    /// Begins to speak. False: it cannot, and `listener` hears nothing. Otherwise `speechEnded` comes in
    /// every case but after `silence`. The listener is called on the caller's thread, and not from within
    /// `say`.
    [[nodiscard]] virtual bool say(const std::vector<SpokenRun>& runs, VoiceListener& listener) = 0;

    /// Silent at once; the listener hears nothing more of what was being said.
    virtual void silence() = 0;
};

} // namespace brovin::character
