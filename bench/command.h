#pragma once

#include <string>
#include <vector>

namespace brovin::bench {

/// What one run of a command took.
struct Cost {
    double seconds = 0;
    double processor = 0; ///< seconds of it, of all its threads
    double mebibytes = 0; ///< at its peak, resident
};

/// Runs a command without output and waits for it. Ends the benchmark when it cannot be run.
[[nodiscard]] Cost run(const std::vector<std::string>& command);

/// The cheapest of several runs: what remains when nothing else disturbs.
[[nodiscard]] Cost cheapest(const std::vector<std::string>& command, int runs);

} // namespace brovin::bench
