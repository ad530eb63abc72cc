#pragma once

#include "platform/result.h"

#include <functional>
#include <string_view>

namespace brovin::posix {

/// Whether anything below the folder `name` of `parent` has a wanted name, in the form that listed folders
/// give. Links are not followed.
[[nodiscard]] platform::Result<bool> treeHolds(int parent, const char* name,
                                               const std::function<bool(std::string_view)>& wanted);

} // namespace brovin::posix
