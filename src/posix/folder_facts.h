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

/// Whether the numbers of a disk's entries last as long as the entries do: a disk that a program makes may
/// give a file another number whenever it is looked at. Asked once a disk.
class LastingNumbers {
public:
    /// Of the disk `device`, on which or below which `folder` lies.
    [[nodiscard]] bool on(int folder, dev_t device);

private:
    dev_t device_ = 0;
    bool lasting_ = false;
    bool known_ = false;
};

/// Of a folder that is open. Failure: the system does not tell where it is.
[[nodiscard]] platform::Result<platform::FolderIdentity> identityOf(int folder);

} // namespace brovin::posix
