#pragma once

namespace brovin::posix {

/// While it lives, the first SIGINT, SIGTERM or SIGHUP is a wish that the program can hear of and obey in its
/// own time; the same signal again ends the program at once. What the program was started to ignore stays
/// ignored. There is one at a time.
class StopSignals {
public:
    StopSignals();
    ~StopSignals();
    StopSignals(const StopSignals&) = delete;
    StopSignals& operator=(const StopSignals&) = delete;

    /// The number of the signal that has come; 0: none.
    [[nodiscard]] static int caught();

    /// Waits until there is something to read there. False: a signal came first.
    [[nodiscard]] static bool waitToRead(int descriptor);
};

} // namespace brovin::posix
