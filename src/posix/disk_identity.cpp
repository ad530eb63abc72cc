#include "posix/disk_identity.h"

#include <linux/magic.h>
#include <sys/stat.h>
#include <sys/statfs.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <iterator>
#include <system_error>

namespace brovin::posix {
namespace {

constexpr std::uint64_t kExfat = 0x2011BAB0; // by the kernel's sources; the header has it since 6.2
constexpr std::uint64_t kZfs = 0x2FC12FC1;
constexpr std::uint64_t kBcachefs = 0xCA451A4E;

std::uint64_t typeOf(const struct statfs& disk) {
    return static_cast<std::uint32_t>(disk.f_type);
}

/// Where the number that statfs tells of a disk comes from its name. Elsewhere it may be the device's.
bool numberIsFromName(std::uint64_t type) {
    constexpr std::uint64_t kTypes[] = {EXT4_SUPER_MAGIC, BTRFS_SUPER_MAGIC, TMPFS_MAGIC, kZfs, kBcachefs};
    return std::find(std::begin(kTypes), std::end(kTypes), type) != std::end(kTypes);
}

} // namespace

bool numbersLast(const struct statfs& disk) {
    constexpr std::uint64_t kWithout[] = {FUSE_SUPER_MAGIC, MSDOS_SUPER_MAGIC, kExfat};
    return std::find(std::begin(kWithout), std::end(kWithout), typeOf(disk)) == std::end(kWithout);
}

std::string diskName(const struct statfs& disk, unsigned long device) {
    if (numberIsFromName(typeOf(disk))) {
        std::uint64_t number = 0;
        static_assert(sizeof disk.f_fsid == sizeof number);
        std::memcpy(&number, &disk.f_fsid, sizeof number);
        char text[17] = "";
        if (number != 0)
            std::snprintf(text, sizeof text, "%016llx", static_cast<unsigned long long>(number));
        return text;
    }
    std::error_code failed;
    for (std::filesystem::directory_iterator at("/dev/disk/by-uuid", failed), end; !failed && at != end;
         at.increment(failed)) {
        struct stat facts {};
        if (::stat(at->path().c_str(), &facts) == 0 && S_ISBLK(facts.st_mode) && facts.st_rdev == device)
            return at->path().filename();
    }
    return {};
}

} // namespace brovin::posix
