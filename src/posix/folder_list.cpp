#include "posix/folder_list.h"

#include "posix/entry_name.h"

namespace brovin::posix {

platform::Result<std::span<const platform::Entry>> FolderList::read(int folder) {
    entries_.clear();
    if (const platform::Status status = reader_.read(folder); !status)
        return status.failure();
    shownNames_.clear();
    shownNames_.reserve(roomForShownNames(reader_.bytes()));
    while (const auto record = reader_.next())
        entries_.push_back({shownName(record->name, shownNames_), record->name, record->kind});
    return std::span<const platform::Entry>(entries_);
}

} // namespace brovin::posix
