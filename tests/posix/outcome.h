#pragma once

#include "platform/result.h"

#include <string>

namespace brovin::posix {

/// The system's error number of what failed; 0 for a success.
template <class T>
int errorOf(const platform::Result<T>& result) {
    return result ? 0 : result.failure().number;
}

/// The system's words for why it failed; empty for a success.
template <class T>
std::string reasonOf(const platform::Result<T>& result) {
    return result ? std::string() : result.failure().reason;
}

} // namespace brovin::posix
