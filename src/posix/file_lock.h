#pragma once

#include "posix/descriptor.h"

#include <chrono>
#include <string>

namespace brovin::posix {

/// A file that one process at a time holds, by flock(2): the system lets go of it when the holder ends,
/// however it ends, so that a file which is left behind keeps nobody waiting.
class FileLock {
public:
    /// Makes the file where it is missing, and waits for it as long as `patience` allows.
    FileLock(const std::string& path, std::chrono::milliseconds patience);

    /// False: another process holds it. Where files cannot be locked at all, or the file cannot be made,
    /// nobody can be kept waiting, and it counts as held.
    [[nodiscard]] bool held() const { return held_; }

private:
    Descriptor file_;
    bool held_ = true;
};

} // namespace brovin::posix
