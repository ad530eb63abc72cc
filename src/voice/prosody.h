#pragma once

#include "character/stage/spoken_run.h"
#include "voice/timbre.h"

namespace brovin::voice {

/// How the synthesizer is to speak, in its own units.
struct Prosody {
    int rate = 165;   ///< words per minute, 80 to 600
    int pitch = 50;   ///< 0 to 99; 50 is the voice's own
    int range = 50;   ///< 0 to 99; 0 is a monotone
    int volume = 100; ///< 0 to 200; 100 is the voice's own
    int emphasis = 0; ///< 0 none, 3 strong
    bool spelled = false;

    bool operator==(const Prosody&) const = default;
};

/// What comes nearest to a style with this timbre.
[[nodiscard]] Prosody prosodyOf(const character::VoiceStyle& style, const Timbre& timbre);

} // namespace brovin::voice
