#pragma once

#include "platform/result.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace brovin::platform {

/// What separates the names in a path.
inline constexpr char kPathSeparator = '/';

/// A symbolic link counts as a file, whatever it points to.
enum class EntryKind : std::uint8_t { File, Folder };

/// One entry of a listed folder.
struct Entry {
    /// The name in lower case (Unicode), with a carriage return or U+F00D as "?". Bytes that are not UTF-8
    /// stay.
    std::string_view name;
    /// The bytes by which the entry is known to the disk; every operation wants these.
    std::string_view trueName;
    EntryKind kind = EntryKind::File;
};

/// What is told of an entry without looking into it. Device, inode and kind tell it from another one that has
/// come to bear its name.
struct EntryFacts {
    EntryKind kind = EntryKind::File;
    std::uint64_t bytes = 0;   ///< in a file (of a link: in the link itself); nothing of a folder
    std::int64_t modified = 0; ///< seconds since the beginning of 1970, UTC
    std::uint64_t device = 0;
    /// 0: the disk gives out numbers anew, so that they tell nothing.
    std::uint64_t inode = 0;

    /// Whether it is the same entry. Where numbers tell nothing, a file of other bytes or another time is
    /// not.
    [[nodiscard]] bool sameEntry(const EntryFacts& other) const {
        return kind == other.kind && device == other.device && inode == other.inode &&
               (inode != 0 || kind == EntryKind::Folder ||
                (bytes == other.bytes && modified == other.modified));
    }
};

/// Whether read-only entries are deleted too. Read-only: the owner's write bit is clear.
enum class Force : bool { No, Yes };

/// The number of a failure that means: the disk has no trash, and none can be made there.
inline constexpr int kNoTrash = -1;

/// What tells a folder from another one that has come to stand in its place.
struct FolderIdentity {
    std::uint64_t device = 0;
    /// 0: the disk gives out numbers anew each time that it is mounted, so that they tell nothing.
    std::uint64_t inode = 0;
    std::string path; ///< the full one, without a link in it
    /// When it was made, as the disk writes it down: the number of a folder that was removed is given to the
    /// next one. Without colons. "": the disk does not tell, or what it tells may change.
    std::string born = {};
    /// What the disk was named when it was formatted: stays when it is hung in elsewhere, and is another one
    /// after it was formatted anew. Without colons. "": not known.
    std::string disk = {};
};

/// What can be seen of the folder that is open at a place of a walk.
class FolderEntries {
public:
    virtual ~FolderEntries() = default;

    /// The first entries of this folder, "." and ".." left out, hidden and system ones included, in the
    /// disk's order. Valid until the next list, listMore, enter or leave.
    virtual Result<std::span<const Entry>> list() = 0;

    /// The entries that follow; none: that was all. Folders come in pieces so that a huge one costs no more
    /// memory than a small one. What happens to the entries of one piece does not change which ones the next
    /// has, as far as the disk keeps its order.
    virtual Result<std::span<const Entry>> listMore() = 0;

    /// What is told of an entry of this folder.
    virtual Result<EntryFacts> facts(std::string_view trueName) = 0;

    /// The first bytes of a file, as many as fit, into `memory`; how many there were. Never waits for the
    /// other end of a pipe, and refuses whatever is no file with contents of its own, a link too.
    virtual Result<std::size_t> head(std::string_view trueName, std::span<std::uint8_t> memory) = 0;

    /// Whether anything below a folder has a name, in the form that `Entry::name` has, that is `wanted`.
    virtual Result<bool> holds(std::string_view folder,
                               const std::function<bool(std::string_view name)>& wanted) = 0;

    /// Bytes in all files below a folder.
    virtual Result<std::uint64_t> folderSize(std::string_view trueName) = 0;
};

/// What can be deleted in the folder that is open at a place of a walk.
class FolderDeletions {
public:
    virtual ~FolderDeletions() = default;

    /// Deletes a file or a link; a folder is refused.
    virtual Status deleteFile(std::string_view trueName, Force force) = 0;

    /// Deletes a folder with all that is in it. A failure midway leaves the rest.
    virtual Status deleteFolder(std::string_view trueName, Force force) = 0;

    /// Moves a file, a link or a whole folder to the user's trash on its disk. What could not be deleted
    /// stays, a folder whole. Failure: also `kNoTrash`.
    virtual Status moveToTrash(std::string_view trueName, EntryKind kind, Force force) = 0;

    /// Whether this folder is the user's trash or lies in it.
    [[nodiscard]] virtual bool isInTrash() = 0;
};

/// A place in a folder tree. The folder is held open, so that what is listed is what is deleted, whoever
/// moves things about meanwhile. Nothing below the folder that was opened first is ever reached through a
/// link.
class FolderWalk : public FolderEntries, public FolderDeletions {
public:
    /// Asked some times a second while a slow disk lets the walk wait, and while a huge folder is read.
    /// False: the operation fails with ECANCELED. Not every wait can be ended so.
    virtual void whileWaiting(std::function<bool()> goesOn) = 0;

    /// Of the folder that is open at this place.
    [[nodiscard]] virtual Result<FolderIdentity> identity() = 0;

    /// Goes down into a folder of this one. On failure the place stays the same.
    virtual Status enter(std::string_view trueName) = 0;

    /// Goes back up. Failure: the folder above is not where it was; the walk is over and stays unusable.
    virtual Status leave() = 0;
};

class FileSystem {
public:
    virtual ~FileSystem() = default;

    /// Opens a folder by its full path; links on the way to it are followed. Failure: missing, not a folder,
    /// or not readable.
    virtual Result<std::unique_ptr<FolderWalk>> open(const std::string& path) = 0;

    /// The true spelling of a full path that is known in lower case only. Each name in it is looked for
    /// exactly, then without case; nullopt when one is missing, or fits several entries.
    [[nodiscard]] virtual std::optional<std::string> findWithoutCase(const std::string& loweredPath) = 0;
};

} // namespace brovin::platform
