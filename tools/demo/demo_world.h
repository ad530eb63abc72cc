#pragma once

#include "posix/places.h"

#include <QString>

namespace brovin::tools {

/// Makes a folder with real clutter below `folder`, which is new and empty, and settings there that watch it.
/// Returns where the program has to look.
[[nodiscard]] posix::Places makeDemoWorld(const QString& folder);

} // namespace brovin::tools
