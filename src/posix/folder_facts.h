#pragma once

#include "platform/file_system.h"
#include "platform/result.h"

#include <sys/types.h>

#include <string>

namespace brovin::posix {

/// What decides whether a folder may be emptied.
struct FolderFacts {
    mode_t mode = 0;
    dev_t device = 0;
    /// A disk, or a part of one, was hung in here. On systems that do not tell: false, and a change of device
    /// is the only sign.
    bool isMountPoint = false;
};

[[nodiscard]] platform::Result<FolderFacts> factsOf(int folder);

/// Where an open folder is, without a link in the path. Failure: the system does not tell.
[[nodiscard]] platform::Result<std::string> pathOf(int folder);

/// Of a folder that is open. Failure: the system does not tell where it is.
[[nodiscard]] platform::Result<platform::FolderIdentity> identityOf(int folder);

} // namespace brovin::posix
