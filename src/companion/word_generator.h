#pragma once

#include "platform/random.h"

#include <string>

namespace brovin::companion {

/// A word from the fixed vocabulary, the same in every language; each call is a draw of its own.
[[nodiscard]] std::string makeWord(platform::Random& random);

} // namespace brovin::companion
