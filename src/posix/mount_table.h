#pragma once

#include <string>

namespace brovin::posix {

/// Whether what is hung in at `realPath` is the very folder that is there without it, as sandboxes hang in
/// those that a program may write to. False where nothing is hung in, and where the system does not tell
/// (Linux: mountinfo).
[[nodiscard]] bool isHungInWhereItIs(const std::string& realPath);

} // namespace brovin::posix
