#include "posix/folder_walk.h"

#include "posix/file_head.h"
#include "posix/open_folder.h"
#include "posix/system_call.h"
#include "posix/tree_names.h"
#include "posix/tree_removal.h"
#include "posix/tree_size.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <new>
#include <string>
#include <utility>
#include <vector>

namespace brovin::posix {

PosixFolderWalk::PosixFolderWalk(Descriptor root, ReadingAhead when)
    : root_(FolderChain::held(std::move(root))), chain_(root_->number(), FolderChain::Use::Walk),
      pace_(when) {
    watch_.start();
}

PosixFolderWalk::~PosixFolderWalk() {
    if (ahead_)
        ahead_->stop();
}

void PosixFolderWalk::whileWaiting(std::function<bool()> goesOn) {
    patience_ = std::move(goesOn);
    // Whoever gives up here is heard at the first entry: what was read until then is no failure.
    list_.whileReading([this] {
        if (patience_)
            static_cast<void>(patience_());
    });
}

platform::Result<platform::FolderIdentity> PosixFolderWalk::identity() {
    return identityOf(chain_.current());
}

platform::Result<std::span<const platform::Entry>> PosixFolderWalk::list() {
    if (over_)
        return systemFailure(ESTALE);
    if (ready_) {
        list_.begin(chain_.current(), *std::exchange(ready_, std::nullopt));
        return list_.piece();
    }
    if (platform::Status begun = beginList(); !begun)
        return begun.failure();
    return list_.piece();
}

platform::Status PosixFolderWalk::beginList() {
    if (!fromStart_) {
        watch_.start();
        if (::lseek(chain_.current(), 0, SEEK_SET) != 0)
            return lastFailure();
        if (ahead_)
            ahead_->dropBelow(chain_.depth());
    }
    fromStart_ = false;
    platform::Status begun = list_.begin(chain_.current());
    if (!begun)
        return begun;
    notePace();
    planAhead();
    return begun;
}

platform::Result<std::span<const platform::Entry>> PosixFolderWalk::listMore() {
    if (over_)
        return systemFailure(ESTALE);
    auto piece = list_.piece();
    while (piece.empty()) {
        platform::Result<bool> more = list_.nextPart();
        if (!more)
            return more.failure();
        if (!*more)
            break;
        planAhead();
        piece = list_.piece();
    }
    return piece;
}

void PosixFolderWalk::notePace() {
    const auto took = watch_.stop(list_.bytes());
    if (ahead_)
        ahead_->note(took);
    else
        pace_.note(took);
}

/// Tells what lies below, if the disk is slow. Where there is no memory for that, the walk reads all itself.
void PosixFolderWalk::planAhead() try {
    if (ahead_ ? !ahead_->slow() : !pace_.slow())
        return;
    if (!ahead_ && ReadAhead::possible())
        ahead_ = std::make_shared<ReadAhead>(pace_);
    if (!ahead_)
        return;
    std::vector<std::string> names;
    list_.eachFolder([&names](std::string_view name) {
        if (names.size() < ReadPlan::kMostOfOneFolder)
            names.emplace_back(name);
    });
    if (!names.empty())
        ahead_->plan(handle(), chain_.depth(), names);
} catch (const std::bad_alloc&) {
    list_.rewind();
}

platform::Status PosixFolderWalk::enter(std::string_view trueName) {
    const PlainName name(trueName);
    if (platform::Status usable = check(name); !usable)
        return usable;
    ready_.reset();
    if (ahead_) {
        platform::Result<ReadFolder> read = ahead_->take(chain_.depth(), trueName, patience_);
        if (!read)
            return read.failure();
        if (read->folder) {
            platform::Status entered = chain_.enter(std::move(read->folder), trueName);
            if (entered)
                ready_ = std::move(read->records);
            fromStart_ = false;
            return entered;
        }
    }
    return enterInPlace(name.text());
}

platform::Status PosixFolderWalk::enterInPlace(const char* name) {
    watch_.start();
    platform::Result<Descriptor> folder = openFolderIn(chain_.current(), name);
    if (!folder)
        return folder.failure();
    if (platform::Status entered = chain_.enter(FolderChain::held(std::move(*folder))); !entered)
        return entered;
    fromStart_ = true;
    return platform::Done{};
}

platform::Status PosixFolderWalk::leave() {
    if (over_ || chain_.depth() == 0)
        return systemFailure(over_ ? ESTALE : EINVAL);
    ready_.reset();
    fromStart_ = false;
    platform::Result<FolderChain::Way> left = chain_.leave();
    over_ = !left;
    if (!left)
        return left.failure();
    if (ahead_) {
        ahead_->dropBelow(chain_.depth() + 1);
        if (*left == FolderChain::Way::Reopened)
            ahead_->reopened(handle(), chain_.depth());
    }
    return platform::Done{};
}

platform::Result<platform::EntryFacts> PosixFolderWalk::facts(std::string_view trueName) {
    const PlainName name(trueName);
    if (platform::Status usable = check(name); !usable)
        return usable.failure();
    struct stat found {};
    if (::fstatat(chain_.current(), name.text(), &found, AT_SYMLINK_NOFOLLOW) != 0)
        return lastFailure();
    const bool folder = S_ISDIR(found.st_mode);
    return platform::EntryFacts{folder ? platform::EntryKind::Folder : platform::EntryKind::File,
                                folder ? 0 : static_cast<std::uint64_t>(found.st_size), found.st_mtime,
                                found.st_dev, lasting_.on(chain_.current(), found.st_dev) ? found.st_ino : 0};
}

platform::Result<std::size_t> PosixFolderWalk::head(std::string_view trueName,
                                                    std::span<std::uint8_t> memory) {
    const PlainName name(trueName);
    platform::Status usable = check(name);
    return usable ? headOf(chain_.current(), name.text(), memory) : usable.failure();
}

platform::Result<bool> PosixFolderWalk::holds(std::string_view folder,
                                              const std::function<bool(std::string_view)>& wanted) {
    const PlainName name(folder);
    platform::Status usable = check(name);
    return usable ? treeHolds(chain_.current(), name.text(), wanted) : usable.failure();
}

platform::Result<std::uint64_t> PosixFolderWalk::folderSize(std::string_view trueName) {
    const PlainName name(trueName);
    platform::Status usable = check(name);
    return usable ? treeSize(chain_.current(), name.text()) : usable.failure();
}

platform::Status PosixFolderWalk::deleteFile(std::string_view trueName, platform::Force force) {
    const PlainName name(trueName);
    platform::Status ready = readyToDelete(name);
    return ready ? removeFile(chain_.current(), name.text(), force) : ready;
}

platform::Status PosixFolderWalk::deleteFolder(std::string_view trueName, platform::Force force) {
    const PlainName name(trueName);
    platform::Status ready = readyToDelete(name);
    if (ready && ahead_)
        ready = ahead_->release(chain_.depth(), trueName, patience_);
    return ready ? removeTree(chain_.current(), name.text(), force) : ready;
}

platform::Status PosixFolderWalk::moveToTrash(std::string_view trueName, platform::EntryKind kind,
                                              platform::Force force) {
    const PlainName name(trueName);
    platform::Status ready = readyToDelete(name);
    if (ready && ahead_ && kind == platform::EntryKind::Folder)
        ready = ahead_->release(chain_.depth(), trueName, patience_);
    return ready ? trash_.take(chain_.current(), name.text(), kind, force) : ready;
}

/// What was read ahead may have been moved out of the tree since, so that deleting in it would reach
/// elsewhere.
platform::Status PosixFolderWalk::readyToDelete(const PlainName& name) {
    platform::Status usable = check(name);
    return usable ? chain_.prove() : usable;
}

platform::Status PosixFolderWalk::check(const PlainName& name) const {
    if (over_)
        return systemFailure(ESTALE);
    if (!name)
        return systemFailure(EINVAL);
    return platform::Done{};
}

} // namespace brovin::posix
