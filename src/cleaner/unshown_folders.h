#pragma once

#include "language/message_table.h"
#include "platform/dialogs.h"
#include "platform/file_system.h"

#include <string>

namespace brovin::cleaner {

/// From a folder that was picked, on to folders that no picker can show, since their names are not UTF-8:
/// where there are some, the user chooses among them and the folder itself, step by step. What he chose, or
/// "" when he cancelled. Elsewhere nothing is asked.
[[nodiscard]] std::string throughUnshownFolders(std::string picked, platform::FileSystem& files,
                                                platform::Dialogs& dialogs,
                                                const language::MessageTable& messages);

} // namespace brovin::cleaner
