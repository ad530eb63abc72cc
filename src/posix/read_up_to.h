#pragma once

#include "posix/descriptor.h"

#include <cstddef>
#include <optional>
#include <string>

namespace brovin::posix {

/// What a file holds from where it stands to its end, whatever size it gives itself. nullopt: it cannot be
/// read, or holds more than `limit` bytes.
[[nodiscard]] std::optional<std::string> readUpTo(const Descriptor& file, std::size_t limit);

} // namespace brovin::posix
