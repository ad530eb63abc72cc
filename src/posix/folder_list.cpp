#include "posix/folder_list.h"

#include "posix/entry_name.h"

#include <algorithm>

namespace brovin::posix {

std::span<const platform::Entry> FolderList::piece() {
    constexpr std::size_t kMostNameBytes = 256;
    entries_.clear();
    shownNames_.clear();
    shownNames_.reserve(roomForShownNames(std::min(reader_.bytes(), kMostEntries * kMostNameBytes)));
    while (entries_.size() < kMostEntries) {
        const auto record = reader_.next();
        if (!record)
            break;
        entries_.push_back({shownName(record->name, shownNames_), record->name, record->kind});
    }
    return entries_;
}

} // namespace brovin::posix
