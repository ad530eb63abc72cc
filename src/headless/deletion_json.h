#pragma once

#include "cleaner/folder_sweep.h"
#include "language/message_table.h"

#include <string>

namespace brovin::headless {

/// A deletion as one JSON object: what, why, whether it is gone, what is known of such a name, and what a
/// "._" file carried.
[[nodiscard]] std::string deletionJson(const cleaner::Deletion& deletion, bool dryRun,
                                       const language::MessageTable& messages);

} // namespace brovin::headless
