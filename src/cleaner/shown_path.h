#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace brovin::cleaner {

/// Bytes of a path that are shown, at most: whoever can write to a share can make longer ones than anybody
/// reads, and what a deletion costs must not grow with them.
inline constexpr std::size_t kMostShownPath = 1024;

/// An entry's path for lists and terminals: control characters and stray bytes as U+FFFD, a path that is too
/// long cut in the middle. `folder` has a separator at its end.
[[nodiscard]] std::string listedPath(std::string_view folder, std::string_view name);

/// The same for messages and the log, which turn a backslash and an "n" into a line break: a file of such a
/// name must not make one.
[[nodiscard]] std::string shownPath(std::string_view folder, std::string_view name);

} // namespace brovin::cleaner
