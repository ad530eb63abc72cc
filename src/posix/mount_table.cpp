#include "posix/mount_table.h"

#include "posix/descriptor.h"
#include "posix/read_up_to.h"

#include <fcntl.h>

#include <algorithm>
#include <charconv>
#include <sstream>
#include <string_view>
#include <vector>

namespace brovin::posix {
namespace {

struct Mount {
    int id = 0;
    int parent = 0;
    std::string device;
    std::string root;  ///< what of the disk is hung in
    std::string point; ///< where
};

/// Blanks and the like stand in the table as a backslash and three octal digits.
std::string plain(std::string_view escaped) {
    std::string text;
    while (!escaped.empty()) {
        unsigned code = 0;
        if (escaped.size() > 3 && escaped[0] == '\\' &&
            std::from_chars(&escaped[1], &escaped[1] + 3, code, 8).ec == std::errc()) {
            text += static_cast<char>(code);
            escaped.remove_prefix(4);
        } else {
            text += escaped[0];
            escaped.remove_prefix(1);
        }
    }
    return text;
}

std::vector<Mount> mountTable() {
    constexpr std::size_t kLargest = std::size_t{16} << 20U;
    const Descriptor file(::open("/proc/self/mountinfo", O_RDONLY | O_CLOEXEC));
    std::vector<Mount> mounts;
    std::istringstream table(file ? readUpTo(file, kLargest).value_or("") : "");
    for (std::string line; std::getline(table, line);) {
        std::istringstream fields(line);
        if (Mount mount; fields >> mount.id >> mount.parent >> mount.device >> mount.root >> mount.point) {
            mount.root = plain(mount.root);
            mount.point = plain(mount.point);
            mounts.push_back(std::move(mount));
        }
    }
    return mounts;
}

/// What of the parent's disk stands at `path` while nothing is hung in there.
std::string rootAt(const Mount& parent, const std::string& path) {
    const std::string below = parent.point == "/" ? path : path.substr(parent.point.size());
    return parent.root == "/" && !below.empty() ? below : parent.root + below;
}

} // namespace

bool isHungInWhereItIs(const std::string& realPath) {
    const std::vector<Mount> mounts = mountTable();
    const auto topmost = std::find_if(mounts.rbegin(), mounts.rend(),
                                      [&realPath](const Mount& mount) { return mount.point == realPath; });
    if (topmost == mounts.rend())
        return false;
    // Several may be hung in there, one over the other: all of them have to be that folder.
    const Mount* mount = &*topmost;
    while (mount->point == realPath) {
        const auto parent = std::find_if(mounts.begin(), mounts.end(), [mount](const Mount& other) {
            return other.id == mount->parent && other.id != mount->id;
        });
        if (parent == mounts.end() || parent->device != mount->device ||
            !realPath.starts_with(parent->point) || mount->root != rootAt(*parent, realPath))
            return false;
        mount = &*parent;
    }
    return true;
}

} // namespace brovin::posix
