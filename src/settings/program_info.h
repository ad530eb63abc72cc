#pragma once

#include <string>

namespace brovin::settings {

/// What the program calls itself.
struct ProgramInfo {
    std::string title;
    int major = 0;
    int minor = 0;
    int revision = 0;
};

} // namespace brovin::settings
