#pragma once

#include "platform/scan_lock.h"

#include <string>

namespace brovin::posix {

/// Locks a folder of the user's by flock(2): the system lets go of the lock when its holder ends, however it
/// ends, and no file is left behind.
class FlockScanLock final : public platform::ScanLock {
public:
    /// The folder is made when it is missing, and taken from everybody else. Where it cannot be made or
    /// locked, the nearest folder above takes its place that nobody else can open.
    explicit FlockScanLock(std::string folder) : folder_(std::move(folder)) {}

    [[nodiscard]] std::unique_ptr<Hold> tryHold() override;

private:
    std::string folder_;
};

} // namespace brovin::posix
