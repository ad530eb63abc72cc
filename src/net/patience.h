#pragma once

#include <chrono>
#include <cstdint>

namespace brovin::net {

/// How long a server may take.
struct Patience {
    std::chrono::milliseconds connect{10'000};
    std::chrono::milliseconds silence{20'000}; ///< with nothing coming
    /// After the first minute, a server that has sent less than this in each second keeps the line open for
    /// nothing. The time in which the program itself did not read does not count.
    std::uint64_t bytesPerSecond = 1024;
    std::chrono::milliseconds firstMinute{60'000};
    /// How long after the announced end a server may leave the line open; more than was announced would come
    /// then.
    std::chrono::milliseconds afterEnd{1'000};
};

} // namespace brovin::net
