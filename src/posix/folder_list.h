#pragma once

#include "platform/file_system.h"
#include "posix/directory_reader.h"

#include <cstddef>
#include <functional>
#include <span>
#include <string>
#include <utility>
#include <vector>

namespace brovin::posix {

/// The entries of one folder after another, in memory that is used again for each: read from the disk in
/// parts, handed out in smaller pieces.
class FolderList {
public:
    /// Reads the first part of a folder, from the place where its descriptor stands.
    platform::Status begin(int folder) { return reader_.read(folder); }

    /// Takes over a first part that another has read.
    void begin(int folder, const FolderRecords& records) { reader_.adopt(folder, records); }

    /// Reads the next part. False: there is none.
    platform::Result<bool> nextPart() { return reader_.readOn(); }

    /// Told while a huge folder is read, every few milliseconds of work.
    void whileReading(std::function<void()> told) { reader_.whileReading = std::move(told); }

    /// The next entries of this part; none: that was all of it. They are valid until the next call.
    std::span<const platform::Entry> piece();

    /// Calls back with the name of each folder in this part, in order. Before its first piece.
    template <class Found>
    void eachFolder(Found found) {
        while (const auto record = reader_.next()) {
            if (record->kind == platform::EntryKind::Folder)
                found(record->name);
        }
        reader_.rewind();
    }

    /// Goes back to the first entry of this part.
    void rewind() { reader_.rewind(); }

    /// Bytes that this part takes in memory.
    [[nodiscard]] std::size_t bytes() const { return reader_.bytes(); }

private:
    static constexpr std::size_t kMostEntries = 1024; ///< of a piece: what stays near the processor

    DirectoryReader reader_;
    std::string shownNames_;
    std::vector<platform::Entry> entries_;
};

} // namespace brovin::posix
