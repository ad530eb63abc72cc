#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace brovin::cleaner {

/// Bytes of a path that are shown, at most: whoever can write to a share can make longer ones than anybody
/// reads, and what a deletion costs must not grow with them.
inline constexpr std::size_t kMostShownPath = 1024;

/// An entry's path for messages and the log: control characters and stray bytes as U+FFFD, a path that is too
/// long cut in the middle. `folder` has a separator at its end.
[[nodiscard]] std::string shownPath(std::string_view folder, std::string_view name);

} // namespace brovin::cleaner
