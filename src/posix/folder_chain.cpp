#include "posix/folder_chain.h"

#include "posix/open_folder.h"
#include "posix/system_call.h"

#include <sys/stat.h>

namespace brovin::posix {

platform::Status FolderChain::enter(Descriptor folder) {
    if (levels_.size() - highestOpen_ == kMostOpen) {
        if (platform::Status given = giveUpHighest(); !given)
            return given;
    }
    levels_.push_back({std::move(folder)});
    return platform::Done{};
}

platform::Status FolderChain::giveUpHighest() {
    Level& level = levels_[highestOpen_];
    struct stat facts {};
    if (::fstat(level.folder.number(), &facts) != 0)
        return lastFailure();
    level = {Descriptor(), facts.st_dev, facts.st_ino};
    ++highestOpen_;
    return platform::Done{};
}

platform::Status FolderChain::leave() {
    const std::size_t above = levels_.size() - 1;
    if (above > 0 && highestOpen_ == above) {
        platform::Result<Descriptor> folder = openAbove();
        if (!folder)
            return folder.failure();
        levels_[above - 1].folder = std::move(*folder);
        --highestOpen_;
    }
    levels_.pop_back();
    return platform::Done{};
}

platform::Result<Descriptor> FolderChain::openAbove() const {
    const Level& expected = levels_[levels_.size() - 2];
    platform::Result<Descriptor> folder = openFolderIn(current(), "..");
    if (!folder)
        return folder;
    struct stat facts {};
    if (::fstat(folder->number(), &facts) != 0)
        return lastFailure();
    if (facts.st_dev != expected.device || facts.st_ino != expected.inode)
        return platform::Failure{ESTALE, "The folder above was moved"};
    return folder;
}

} // namespace brovin::posix
