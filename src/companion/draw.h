#pragma once

#include "platform/random.h"

#include <cstddef>

namespace brovin::companion {

/// A whole number from 0 up to, but not including, `count`: every choice of the program is drawn so.
[[nodiscard]] inline std::size_t drawBelow(platform::Random& random, std::size_t count) {
    return static_cast<std::size_t>(random.next() * static_cast<double>(count));
}

} // namespace brovin::companion
