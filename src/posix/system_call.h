#pragma once

#include "platform/result.h"

#include <cerrno>

namespace brovin::posix {

/// An error number with the system's description of it.
[[nodiscard]] platform::Failure systemFailure(int number);

/// Why the call just made failed.
[[nodiscard]] inline platform::Failure lastFailure() {
    return systemFailure(errno);
}

/// Makes a call that reports failure by a negative number, again as long as a signal interrupts it.
template <class Call>
auto uninterrupted(Call call) {
    for (;;) {
        const auto result = call();
        if (result >= 0 || errno != EINTR)
            return result;
    }
}

} // namespace brovin::posix
