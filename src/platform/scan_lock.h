#pragma once

#include <memory>

namespace brovin::platform {

/// Keeps the scans of all of this user's running copies of the program apart.
class ScanLock {
public:
    /// Holds the lock while it lives.
    class Hold {
    public:
        virtual ~Hold() = default;
    };

    virtual ~ScanLock() = default;

    /// Null: another copy is scanning at this moment. A killed holder leaves no lock behind.
    [[nodiscard]] virtual std::unique_ptr<Hold> tryHold() = 0;
};

} // namespace brovin::platform
