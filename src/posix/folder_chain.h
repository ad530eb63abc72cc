#pragma once

#include "platform/result.h"
#include "posix/descriptor.h"

#include <sys/types.h>

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace brovin::posix {

/// An open folder that several hold: the chain, and whoever opens folders in it ahead of the walk.
using FolderHandle = std::shared_ptr<const Descriptor>;

/// The way from a folder down to a folder somewhere in it, held open. Only the lowest few are: of those
/// above, the device and inode are known, so that the way back up is found through ".." and proven right. So
/// the depth is bounded neither by the number of open files nor by the length of a path.
class FolderChain {
public:
    /// What a chain is for: the way of a walk, or of something that is done to a tree on that way.
    enum class Use { Walk, OneTree };

    /// `root` is the caller's; it stays open as long as the chain lives, and the way up ends there.
    explicit FolderChain(int root, Use use = Use::OneTree);

    [[nodiscard]] int current() const { return levels_.empty() ? root_ : levels_.back().folder->number(); }
    [[nodiscard]] std::size_t depth() const { return levels_.size(); }

    /// The current folder, for others to hold; null at the root.
    [[nodiscard]] FolderHandle handle() const { return levels_.empty() ? nullptr : levels_.back().folder; }

    static FolderHandle held(Descriptor folder) {
        return std::make_shared<const Descriptor>(std::move(folder));
    }

    /// Goes down into a folder that was opened in the current one. On failure the place stays. One that was
    /// opened long ago is entered by its name: whether it still stands there is found out by prove().
    platform::Status enter(FolderHandle folder, std::string_view nameToProve = {});

    /// How the chain came to the folder above.
    enum class Way { StillOpen, Reopened };

    /// Goes up one level, from below the root. Failure: the folder above is not where it was, or cannot be
    /// opened any more. The chain is broken then, and only good to be destroyed.
    platform::Result<Way> leave();

    /// Whether every folder on the way down is still, or has been since it was entered, an entry of the one
    /// above. Failure: one was moved away before the walk came to it.
    platform::Status prove();

private:
    struct Level {
        FolderHandle folder;
        std::string nameToProve = {}; ///< in the folder above; empty: nothing is to be proven
        bool moved = false;           ///< was found not to be there
        dev_t device = 0;             ///< this and the inode are set when the descriptor is given up
        ino_t inode = 0;
    };

    platform::Status giveUpHighest();
    platform::Result<Descriptor> openAbove() const;
    void proveLevel(std::size_t index);

    int root_;
    std::size_t mostOpen_;
    std::vector<Level> levels_;
    std::size_t highestOpen_ = 0; ///< index of the first level that is open; all below it are
    std::size_t proven_ = 0;      ///< so many levels from the top have nothing to prove any more
};

} // namespace brovin::posix
