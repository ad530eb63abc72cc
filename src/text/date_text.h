#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

namespace brovin::text {

/// "2026-11-21T23:00:00", the form of ISO 8601 in which the program stores a moment for itself.
[[nodiscard]] std::string isoText(std::chrono::local_seconds when);
/// "2026-11-21".
[[nodiscard]] std::string isoText(std::chrono::local_days day);

/// Reads the two forms above, and a time of day such as "9:15" or "23:00:30", which belongs to the day that
/// dates without one are given: 30 December 1899. nullopt: none of these, or no such date or time.
[[nodiscard]] std::optional<std::chrono::local_seconds> dateOf(std::string_view text);

} // namespace brovin::text
