#pragma once

#include "platform/file_system.h"

namespace brovin::posix {

/// Deletes the file or link `name` of the open folder `parent`. A folder is refused, and without force an
/// entry that is read-only.
[[nodiscard]] platform::Status removeFile(int parent, const char* name, platform::Force force);

/// Deletes the folder `name` of the open folder `parent` with everything in it, links unfollowed, and stops
/// at the first thing that stays. Nothing is deleted when a mount point is met in a search of the whole tree
/// beforehand; one that could not be found then (below a folder that only force opens, or made since) still
/// ends the deletion before anything in it is touched.
[[nodiscard]] platform::Status removeTree(int parent, const char* name, platform::Force force);

/// Whether a deletion would be let through: failure for a folder in which another disk hangs, and without
/// force for what is read-only or has such a thing in it. Touches nothing.
[[nodiscard]] platform::Status mayRemove(int parent, const char* name, platform::EntryKind kind,
                                         platform::Force force);

} // namespace brovin::posix
