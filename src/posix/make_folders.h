#pragma once

#include "platform/result.h"

#include <string>

namespace brovin::posix {

/// Makes a folder and those on the way to it where they are missing, for this user alone (0700).
platform::Status makeFolders(const std::string& path);

/// Takes what this user owns from everybody else. A link, and what others own, is left as it is.
void makePrivate(const std::string& path);

} // namespace brovin::posix
