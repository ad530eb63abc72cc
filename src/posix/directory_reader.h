#pragma once

#include "platform/file_system.h"
#include "platform/result.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <string_view>

namespace brovin::posix {

/// Reads whole folders into one piece of memory, which is kept from folder to folder: reading a tree
/// allocates only while a folder is larger than all before it.
class DirectoryReader {
public:
    struct Record {
        std::string_view name; ///< a zero follows its last byte
        platform::EntryKind kind = platform::EntryKind::File;
    };

    /// Reads all of an open folder, from the place where its descriptor stands. The records of the folder
    /// before are gone, whether it succeeds or not.
    platform::Status read(int folder);

    /// The next of the records that were read, without "." and ".."; nullopt at the end.
    std::optional<Record> next();

    /// Bytes that the records take in memory, at least as many as all their names together.
    [[nodiscard]] std::size_t bytes() const { return end_; }

private:
    /// The system hands over as many records as fit, so that a common folder takes one call and one more to
    /// learn that it was all.
    static constexpr std::size_t kLeastRoom = std::size_t{64} * 1024;

    void makeRoom();

    std::unique_ptr<char[]> memory_; // not a vector, which would clear what is read over
    std::size_t capacity_ = 0;
    std::size_t end_ = 0;
    std::size_t position_ = 0;
    int folder_ = -1;
};

} // namespace brovin::posix
