#pragma once

#include <cstdlib>

namespace brovin::fuzz {

/// Ends the run where a promise is broken; libFuzzer keeps the input.
inline void require(bool holds) {
    if (!holds)
        std::abort();
}

} // namespace brovin::fuzz
