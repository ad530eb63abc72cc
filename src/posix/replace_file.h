#pragma once

#include "platform/result.h"

#include <sys/types.h>

#include <string>
#include <string_view>

namespace brovin::posix {

/// Puts a file in the place of another, or where none was, in one step: whoever reads `path` at any moment, a
/// power failure included, reads the old content or the new one. On the way it stands beside it as `path`
/// with
/// ".new" behind; what a killed copy has left there gives way. Two processes must not replace the same file
/// at once.
platform::Status replaceFile(const std::string& path, std::string_view content, mode_t mode);

} // namespace brovin::posix
