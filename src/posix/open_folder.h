#pragma once

#include "platform/result.h"
#include "posix/descriptor.h"

#include <fcntl.h>

#include <string>

namespace brovin::posix {

/// Never waits for what is at the other end of a pipe or a device, and is not passed on to other programs.
inline constexpr int kFolderFlags = O_RDONLY | O_DIRECTORY | O_NONBLOCK | O_CLOEXEC;

/// Opens a folder for reading by its path; links are followed.
[[nodiscard]] platform::Result<Descriptor> openFolder(const std::string& path);

/// Opens a folder inside a folder for reading. A link is "not a folder", whatever it points to.
[[nodiscard]] platform::Result<Descriptor> openFolderIn(int parent, const char* name);

} // namespace brovin::posix
