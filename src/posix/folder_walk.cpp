#include "posix/folder_walk.h"

#include "posix/open_folder.h"
#include "posix/system_call.h"
#include "posix/tree_removal.h"
#include "posix/tree_size.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace brovin::posix {

PosixFolderWalk::PosixFolderWalk(Descriptor root) : root_(std::move(root)), chain_(root_.number()) {}

platform::Result<std::span<const platform::Entry>> PosixFolderWalk::list() {
    if (over_)
        return systemFailure(ESTALE);
    if (!fromStart_ && ::lseek(chain_.current(), 0, SEEK_SET) != 0)
        return lastFailure();
    fromStart_ = false;
    return list_.read(chain_.current());
}

platform::Status PosixFolderWalk::enter(std::string_view trueName) {
    const PlainName name(trueName);
    if (platform::Status usable = check(name); !usable)
        return usable;
    platform::Result<Descriptor> folder = openFolderIn(chain_.current(), name.text());
    if (!folder)
        return folder.failure();
    if (platform::Status entered = chain_.enter(std::move(*folder)); !entered)
        return entered;
    list_.clear();
    fromStart_ = true;
    return platform::Done{};
}

platform::Status PosixFolderWalk::leave() {
    if (over_ || chain_.depth() == 0)
        return systemFailure(over_ ? ESTALE : EINVAL);
    list_.clear();
    fromStart_ = false;
    platform::Status left = chain_.leave();
    over_ = !left;
    return left;
}

platform::Result<std::uint64_t> PosixFolderWalk::fileLength(std::string_view trueName) {
    const PlainName name(trueName);
    if (platform::Status usable = check(name); !usable)
        return usable.failure();
    struct stat facts {};
    if (::fstatat(chain_.current(), name.text(), &facts, AT_SYMLINK_NOFOLLOW) != 0)
        return lastFailure();
    if (S_ISDIR(facts.st_mode))
        return systemFailure(EISDIR);
    return static_cast<std::uint64_t>(facts.st_size);
}

platform::Result<std::uint64_t> PosixFolderWalk::folderSize(std::string_view trueName) {
    const PlainName name(trueName);
    platform::Status usable = check(name);
    return usable ? treeSize(chain_.current(), name.text()) : usable.failure();
}

platform::Status PosixFolderWalk::deleteFile(std::string_view trueName, platform::Force force) {
    const PlainName name(trueName);
    platform::Status usable = check(name);
    return usable ? removeFile(chain_.current(), name.text(), force) : usable;
}

platform::Status PosixFolderWalk::deleteFolder(std::string_view trueName, platform::Force force) {
    const PlainName name(trueName);
    platform::Status usable = check(name);
    return usable ? removeTree(chain_.current(), name.text(), force) : usable;
}

platform::Status PosixFolderWalk::check(const PlainName& name) const {
    if (over_)
        return systemFailure(ESTALE);
    if (!name)
        return systemFailure(EINVAL);
    return platform::Done{};
}

} // namespace brovin::posix
