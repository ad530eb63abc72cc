// What the module of the history is entered by.
#include "posix/sqlite_history.h"

extern "C" brovin::platform::DeletionHistory* brovinOpenHistory(const std::string& file) {
    return std::make_unique<brovin::posix::SqliteHistory>(file).release();
}
