#pragma once

#include "platform/result.h"
#include "posix/descriptor.h"

#include <sys/types.h>

#include <cstddef>
#include <vector>

namespace brovin::posix {

/// The way from a folder down to a folder somewhere in it, held open. Only the lowest few are: of those
/// above, the device and inode are known, so that the way back up is found through ".." and proven right. So
/// the depth is bounded neither by the number of open files nor by the length of a path.
class FolderChain {
public:
    /// `root` is the caller's; it stays open as long as the chain lives, and the way up ends there.
    explicit FolderChain(int root) : root_(root) {}

    [[nodiscard]] int current() const { return levels_.empty() ? root_ : levels_.back().folder.number(); }
    [[nodiscard]] std::size_t depth() const { return levels_.size(); }

    /// Goes down into a folder that the caller opened in the current one. On failure the place stays.
    platform::Status enter(Descriptor folder);

    /// Goes up one level, from below the root. Failure: the folder above is not where it was, or cannot be
    /// opened any more. The chain is broken then, and only good to be destroyed.
    platform::Status leave();

private:
    struct Level {
        Descriptor folder;
        dev_t device = 0; ///< this and the inode are set when the descriptor is given up
        ino_t inode = 0;
    };

    static constexpr std::size_t kMostOpen = 32;

    platform::Status giveUpHighest();
    platform::Result<Descriptor> openAbove() const;

    int root_;
    std::vector<Level> levels_;
    std::size_t highestOpen_ = 0; ///< index of the first level that is open; all below it are
};

} // namespace brovin::posix
