#pragma once

#include "desktop/places.h"

#include <QString>

namespace brovin::tools {

/// Makes a folder with real clutter below `folder`, and settings there that watch it. Whatever was in
/// `folder` is gone then. Returns where the program has to look.
[[nodiscard]] desktop::Places makeDemoWorld(const QString& folder);

} // namespace brovin::tools
