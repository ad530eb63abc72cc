#pragma once

#include "headless/exit_status.h"

#include <iosfwd>
#include <string>

namespace brovin::headless {

/// Tells the author of a language file what is wrong with it, a line each: the file, the line's number, the
/// fault. Done: nothing; SomeFailed: something; BadUsage: it cannot be read.
[[nodiscard]] ExitStatus checkLanguageCommand(const std::string& file, std::ostream& out, std::ostream& err);

} // namespace brovin::headless
