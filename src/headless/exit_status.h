#pragma once

namespace brovin::headless {

/// How the program ends, for those who start it from a script.
enum class ExitStatus : int {
    Done = 0,
    SomeFailed = 1, ///< a deletion failed, a folder was not swept or not as a whole, nobody could be asked,
                    ///< the settings are damaged, or totals or log could not be written
    BadUsage = 2,   ///< or there is no home folder, or no language file
    Busy = 3,       ///< another scan is running
    NothingToScan = 4,
    OutputLost = 5, ///< what there was to say could not be written
    NoWindow = 127, ///< the executable with the windows is not installed
};

/// The scan was stopped by this signal, and brought to an orderly end.
[[nodiscard]] constexpr ExitStatus endedBySignal(int number) {
    return static_cast<ExitStatus>(128 + number);
}

} // namespace brovin::headless
