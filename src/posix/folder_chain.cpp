#include "posix/folder_chain.h"

#include "posix/open_folder.h"
#include "posix/system_call.h"

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <algorithm>

namespace brovin::posix {
namespace {

/// A chain of each kind may be in use at a time, what reads ahead takes a quarter, and the program needs
/// descriptors besides.
std::size_t mostOpenFolders(FolderChain::Use use) {
    constexpr rlim_t kLeast = 4;
    const bool walk = use == FolderChain::Use::Walk;
    const rlim_t share = walk ? 3 : 8;
    const rlim_t most = walk ? 128 : 32;
    rlimit files{};
    const bool known = ::getrlimit(RLIMIT_NOFILE, &files) == 0;
    return static_cast<std::size_t>(std::clamp(known ? files.rlim_cur / share : kLeast, kLeast, most));
}

platform::Failure moved() {
    return {ESTALE, "The folder was moved"};
}

bool isSame(int folder, int parent, const char* name) {
    struct stat open {};
    struct stat entry {};
    return ::fstat(folder, &open) == 0 && ::fstatat(parent, name, &entry, AT_SYMLINK_NOFOLLOW) == 0 &&
           open.st_dev == entry.st_dev && open.st_ino == entry.st_ino;
}

} // namespace

FolderChain::FolderChain(int root, Use use) : root_(root), mostOpen_(mostOpenFolders(use)) {}

platform::Status FolderChain::enter(FolderHandle folder, std::string_view nameToProve) {
    if (levels_.size() - highestOpen_ == mostOpen_) {
        if (platform::Status given = giveUpHighest(); !given)
            return given;
    }
    if (proven_ == levels_.size() && nameToProve.empty())
        ++proven_;
    levels_.push_back({std::move(folder), std::string(nameToProve)});
    return platform::Done{};
}

platform::Status FolderChain::giveUpHighest() {
    Level& level = levels_[highestOpen_];
    struct stat facts {};
    if (::fstat(level.folder->number(), &facts) != 0)
        return lastFailure();
    proveLevel(highestOpen_); // as long as it and the folder above are open
    proveLevel(highestOpen_ + 1);
    level.folder.reset();
    level.device = facts.st_dev;
    level.inode = facts.st_ino;
    ++highestOpen_;
    return platform::Done{};
}

platform::Result<FolderChain::Way> FolderChain::leave() {
    const std::size_t above = levels_.size() - 1;
    const bool closed = above > 0 && highestOpen_ == above;
    if (closed) {
        platform::Result<Descriptor> folder = openAbove();
        if (!folder)
            return folder.failure();
        levels_[above - 1].folder = held(std::move(*folder));
        --highestOpen_;
    }
    levels_.pop_back();
    proven_ = std::min(proven_, levels_.size());
    return closed ? Way::Reopened : Way::StillOpen;
}

platform::Status FolderChain::prove() {
    while (proven_ < levels_.size()) {
        proveLevel(proven_);
        if (levels_[proven_].moved)
            return moved();
        ++proven_;
    }
    return platform::Done{};
}

/// A level whose folder above is closed has been proven before that was given up, or needs no proof.
void FolderChain::proveLevel(std::size_t index) {
    Level& level = levels_[index];
    if (level.nameToProve.empty())
        return;
    const int above = index == 0 ? root_ : levels_[index - 1].folder->number();
    level.moved = !isSame(level.folder->number(), above, level.nameToProve.c_str());
    level.nameToProve.clear();
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
