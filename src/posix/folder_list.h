#pragma once

#include "platform/file_system.h"
#include "posix/directory_reader.h"

#include <span>
#include <string>
#include <vector>

namespace brovin::posix {

/// The entries of one folder after another, in memory that is used again for each.
class FolderList {
public:
    /// All entries from the place where the descriptor stands. They are valid until the next call of this
    /// object.
    platform::Result<std::span<const platform::Entry>> read(int folder);

    /// Forgets the entries.
    void clear() { entries_.clear(); }

private:
    DirectoryReader reader_;
    std::string shownNames_;
    std::vector<platform::Entry> entries_;
};

} // namespace brovin::posix
