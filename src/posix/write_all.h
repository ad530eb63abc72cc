#pragma once

#include "platform/result.h"
#include "posix/system_call.h"

#include <unistd.h>

#include <string_view>

namespace brovin::posix {

/// Writes all bytes, in as many pieces as the system likes. Failure: some of them may be written.
inline platform::Status writeAll(int file, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written =
            uninterrupted([file, bytes] { return ::write(file, bytes.data(), bytes.size()); });
        if (written < 0)
            return lastFailure();
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return platform::Done{};
}

} // namespace brovin::posix
