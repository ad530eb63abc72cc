#pragma once

#include "app/program_info.h"
#include "desktop/places.h"

class QApplication;

namespace brovin::desktop {

/// Runs the program on the desktop until it ends. Returns its exit status.
[[nodiscard]] int runOnDesktop(QApplication& application, const Places& places, const app::ProgramInfo& info);

} // namespace brovin::desktop
