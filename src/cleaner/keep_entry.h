#pragma once

#include <string>
#include <string_view>

namespace brovin::cleaner {

/// What of a line can stand on the Keep List: a bare name, or a full path without "." and doubled separators
/// and without a separator at its end; "/" is the root. Empty: neither, such as a path that begins nowhere or
/// leads up.
[[nodiscard]] std::string keepEntry(std::string_view line);

} // namespace brovin::cleaner
