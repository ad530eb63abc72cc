#pragma once

#include "platform/result.h"

#include <string>
#include <vector>

namespace brovin::net {

/// Starts a program of the search path, which outlives this one. No shell is involved.
platform::Status startProgram(const std::string& name, std::vector<std::string> arguments);

/// Starts the executable that a descriptor refers to; `name` is what it is told to be called.
platform::Status startDescriptor(int file, std::string name);

} // namespace brovin::net
