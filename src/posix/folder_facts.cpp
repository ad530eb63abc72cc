#include "posix/folder_facts.h"

#include "posix/disk_identity.h"
#include "posix/system_call.h"

#include <fcntl.h>
#include <limits.h>
#include <linux/magic.h>
#include <sys/stat.h>
#include <sys/statfs.h>
#include <sys/sysmacros.h>
#include <unistd.h>

#include <algorithm>
#include <iterator>
#include <string>
#include <utility>

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

bool LastingNumbers::on(int folder, dev_t device) {
    if (known_ && device == device_)
        return lasting_;
    struct statfs disk {};
    lasting_ = ::fstatfs(folder, &disk) == 0 && numbersLast(disk);
    device_ = device;
    known_ = true;
    return lasting_;
}

platform::Result<std::string> pathOf(int folder) {
    std::string path(PATH_MAX, '\0');
    const std::string link = "/proc/self/fd/" + std::to_string(folder);
    const ssize_t length = ::readlink(link.c_str(), path.data(), path.size());
    if (length < 0)
        return lastFailure();
    if (static_cast<std::size_t>(length) == path.size())
        return systemFailure(ENAMETOOLONG);
    path.resize(static_cast<std::size_t>(length));
    return path;
}

namespace {

/// Servers make this time up from others that change, so only disks of this machine are believed.
std::string birthOf(int folder, const struct statfs& disk) {
    constexpr decltype(disk.f_type) kBelieved[] = {EXT4_SUPER_MAGIC, XFS_SUPER_MAGIC, BTRFS_SUPER_MAGIC,
                                                   F2FS_SUPER_MAGIC, TMPFS_MAGIC};
    struct statx facts {};
    if (std::ranges::find(kBelieved, disk.f_type) == std::end(kBelieved) ||
        ::statx(folder, "", AT_EMPTY_PATH, STATX_BTIME, &facts) != 0 || (facts.stx_mask & STATX_BTIME) == 0)
        return {};
    return std::to_string(facts.stx_btime.tv_sec) + "." + std::to_string(facts.stx_btime.tv_nsec);
}

} // namespace

platform::Result<platform::FolderIdentity> identityOf(int folder) {
    struct stat facts {};
    struct statfs disk {};
    platform::Result<std::string> path = pathOf(folder);
    if (!path)
        return path.failure();
    if (::fstat(folder, &facts) != 0 || ::fstatfs(folder, &disk) != 0)
        return lastFailure();
    return platform::FolderIdentity{facts.st_dev, numbersLast(disk) ? facts.st_ino : 0, std::move(*path),
                                    birthOf(folder, disk), diskName(disk, facts.st_dev)};
}

} // namespace brovin::posix
