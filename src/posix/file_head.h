#pragma once

#include "platform/result.h"

#include <cstddef>
#include <cstdint>
#include <span>

namespace brovin::posix {

/// The first bytes of a file of an open folder, as many as fit; how many there were. No more of it is fetched
/// from the disk than that. A link, and whatever is no regular file, is refused and not waited for.
[[nodiscard]] platform::Result<std::size_t> headOf(int folder, const char* name,
                                                   std::span<std::uint8_t> memory);

} // namespace brovin::posix
