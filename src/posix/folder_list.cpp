#include "posix/folder_list.h"

#include "posix/entry_name.h"

namespace brovin::posix {

std::span<const platform::Entry> FolderList::piece() {
    entries_.clear();
    shownNames_.clear();
    // For all of the part: on some shares an entry's name is longer than any disk allows.
    shownNames_.reserve(roomForShownNames(reader_.bytes()));
    while (entries_.size() < kMostEntries) {
        const auto record = reader_.next();
        if (!record)
            break;
        entries_.push_back({shownName(record->name, shownNames_), record->name, record->kind});
    }
    return entries_;
}

} // namespace brovin::posix
