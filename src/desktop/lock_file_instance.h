#pragma once

#include "platform/single_instance.h"

#include <QLockFile>

namespace brovin::desktop {

/// The first copy holds a lock file; one that a killed copy has left behind is taken over.
class LockFileInstance final : public platform::SingleInstance {
public:
    explicit LockFileInstance(const QString& path) : lock_(path) { lock_.setStaleLockTime(0); }

    /// A lock that cannot be made at all, on a read-only disk for instance, keeps nobody from starting.
    [[nodiscard]] bool isFirst() override {
        return lock_.tryLock(0) || lock_.error() != QLockFile::LockFailedError;
    }

private:
    QLockFile lock_;
};

} // namespace brovin::desktop
