#pragma once

#include "platform/result.h"

#include <string>

namespace brovin::posix {

/// Makes a folder and those on the way to it where they are missing, for this user alone (0700).
platform::Status makeFolders(const std::string& path);

} // namespace brovin::posix
