#pragma once

#include "platform/result.h"

#include <cstdint>

namespace brovin::posix {

/// Bytes in all files below the folder `name` of the open folder `parent`; of a link its own. What disappears
/// meanwhile does not count.
[[nodiscard]] platform::Result<std::uint64_t> treeSize(int parent, const char* name);

} // namespace brovin::posix
