#pragma once

#include "character/stage/moment.h"

#include <cstdint>

namespace brovin::character {

/// Plays the sounds that come with animations, one at a time.
class SoundOutput {
public:
    virtual ~SoundOutput() = default;

    /// Starts sound number `sound` of the character; one that still plays ends. How long it will take; zero
    /// when it cannot be played.
    virtual Milliseconds play(std::uint32_t sound) = 0;

    /// Silent at once.
    virtual void stop() = 0;
};

} // namespace brovin::character
