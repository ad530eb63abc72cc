#pragma once

#include <string_view>

namespace brovin::cleaner {

/// The deletion log in the program's folder: lines with CR LF endings.
inline constexpr std::string_view kLogFile = "deletions.log";
/// The line that divides the runs: 48 hyphens.
inline constexpr std::string_view kLogSeparator = "------------------------------------------------";

} // namespace brovin::cleaner
