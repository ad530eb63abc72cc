#pragma once

#include <cstdint>

namespace brovin::platform {

/// What a later copy has the one do that runs.
enum class Errand : std::uint8_t { ShowWindow, ScanNow, SwitchQuiet };

/// Tells whether this copy is the first one that this user runs on this desktop.
class SingleInstance {
public:
    virtual ~SingleInstance() = default;

    /// True: no other copy runs, and from here on this one counts as running.
    [[nodiscard]] virtual bool isFirst() = 0;

    /// Hands an errand to the copy that runs. False: it does not answer.
    [[nodiscard]] virtual bool sendToFirst(Errand errand) = 0;
};

} // namespace brovin::platform
