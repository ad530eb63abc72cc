#pragma once

namespace brovin::headless {

/// How the program ends, for those who start it from a script.
enum class ExitStatus : int {
    Done = 0,
    SomeFailed = 1, ///< a deletion failed, a folder could not be swept, nobody could be asked, or the
                    ///< settings are damaged or could not be stored
    BadUsage = 2,
    Busy = 3, ///< another scan is running
    NothingToScan = 4,
    OutputLost = 5, ///< what there was to say could not be written
    NoWindow = 127, ///< the executable with the windows is not installed
};

/// The scan was stopped by this signal, and brought to an orderly end.
[[nodiscard]] constexpr ExitStatus endedBySignal(int number) {
    return static_cast<ExitStatus>(128 + number);
}

} // namespace brovin::headless
