#include "posix/folder_facts.h"

#include "posix/system_call.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>

namespace brovin::posix {

platform::Result<FolderFacts> factsOf(int folder) {
    struct statx facts {};
    if (::statx(folder, "", AT_EMPTY_PATH, STATX_TYPE | STATX_MODE, &facts) == 0) {
        return FolderFacts{facts.stx_mode, ::makedev(facts.stx_dev_major, facts.stx_dev_minor),
                           (facts.stx_attributes & STATX_ATTR_MOUNT_ROOT) != 0};
    }
    struct stat plain {}; // some sandboxes refuse the other call
    if (::fstat(folder, &plain) != 0)
        return lastFailure();
    return FolderFacts{plain.st_mode, plain.st_dev, false};
}

} // namespace brovin::posix
