#pragma once

#include <unistd.h>

namespace brovin::posix {

/// Whether a file descriptor leads to a terminal.
[[nodiscard]] inline bool isTerminal(int descriptor) {
    return isatty(descriptor) == 1;
}

} // namespace brovin::posix
