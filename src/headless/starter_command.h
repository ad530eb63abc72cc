#pragma once

#include "cleaner/known_names.h"

#include <iosfwd>
#include <string_view>

namespace brovin::headless {

/// "safe", "caution" or "trash".
[[nodiscard]] std::string_view nameOf(cleaner::Origin origin);

/// Prints the names that an empty Nasty File List is offered, a line each: the name, how safe it is, and what
/// goes with it, with tabs between. In English whatever the language is, since scripts read it.
void printStarterNames(std::ostream& out);

} // namespace brovin::headless
