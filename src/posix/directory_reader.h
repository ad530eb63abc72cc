#pragma once

#include "platform/file_system.h"
#include "platform/result.h"
#include "posix/listing_guard.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string_view>

namespace brovin::posix {

/// Records of a folder as the system gave them, in memory of just their size.
struct FolderRecords {
    std::unique_ptr<char[]> memory;
    std::size_t bytes = 0;
    bool ended = false; ///< the folder has no more than these
};

/// Reads folders into one piece of memory, which is kept from folder to folder: reading a tree allocates only
/// while a folder is larger than all before it. A huge folder comes in several parts, so that memory is
/// bounded; what lies within one part is not touched by what happens on the disk after it was read.
class DirectoryReader {
public:
    struct Record {
        std::string_view name; ///< a zero follows its last byte
        platform::EntryKind kind = platform::EntryKind::File;
    };

    static constexpr std::size_t kMostBytes = std::size_t{1} * 1024 * 1024; ///< of one part

    /// Told while a huge folder is read, every few milliseconds of work.
    std::function<void()> whileReading;

    /// Reads an open folder, from the place where its descriptor stands, to its end or as much as fits into
    /// so many bytes. The records before are gone, whether it succeeds or not.
    platform::Status read(int folder, std::size_t mostBytes = kMostBytes);

    /// Reads the next part in place of the one before. False: that was all.
    platform::Result<bool> readOn();

    /// Goes on with what another reader has read of a folder.
    void adopt(int folder, const FolderRecords& records);

    /// What was read, for another reader to go on with.
    [[nodiscard]] FolderRecords copy() const;

    /// The next of the records that were read, without "." and ".."; nullopt at their end.
    std::optional<Record> next();

    /// Goes back to the first record of this part.
    void rewind() { position_ = 0; }

    /// Bytes that the records of this part take in memory, at least as many as all their names together.
    [[nodiscard]] std::size_t bytes() const { return end_; }

private:
    /// The system hands over as many records as fit, so that a common folder takes one call and one more to
    /// learn that it was all.
    static constexpr std::size_t kLeastRoom = std::size_t{64} * 1024;
    /// Asked for at once: a disk in memory needs 3 ms for so much.
    static constexpr std::size_t kMostAtOnce = std::size_t{256} * 1024;

    platform::Status readPart(std::size_t mostBytes);
    platform::Status readPortion();
    platform::Status watch(std::size_t begin);
    void makeRoom(std::size_t bytes);
    [[nodiscard]] ListingGuard::Place lastOf(std::size_t begin) const;

    std::unique_ptr<char[]> memory_; // not a vector, which would clear what is read over
    std::size_t capacity_ = 0;
    std::size_t end_ = 0;
    std::size_t position_ = 0;
    int folder_ = -1;
    bool ended_ = false;
    bool several_ = false; ///< the folder comes in more than one portion, as few do
    ListingGuard guard_;
};

} // namespace brovin::posix
