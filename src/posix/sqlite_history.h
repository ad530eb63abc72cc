#pragma once

#include "platform/deletion_history.h"

#include <cstddef>
#include <memory>
#include <string>

struct sqlite3; // NOLINT(readability-identifier-naming): the library's name

namespace brovin::posix {

/// How much a history keeps.
struct Retention {
    int days = 5 * 366;
    std::size_t rows = 100'000; ///< a row is a name below a folder on a day
};

/// The history in one file, by SQLite, which is opened for each use and is the user's alone (mode 0600). A
/// file that is no history, or a broken one, is moved aside and a new one begun.
class SqliteHistory final : public platform::DeletionHistory {
public:
    explicit SqliteHistory(std::string file, Retention retention = {})
        : file_(std::move(file)), retention_(retention) {}

    platform::Status append(platform::DateTime when, std::span<const platform::DeletedShare> shares) override;
    platform::Result<std::vector<platform::Score>> score(platform::ScoreBy by, std::size_t most) override;
    std::string takeDamaged() override;

private:
    struct Close {
        void operator()(sqlite3* opened) const;
    };
    using Opened = std::unique_ptr<sqlite3, Close>;

    platform::Result<Opened> open();
    platform::Status prepare(sqlite3* opened) const;
    platform::Status forget(sqlite3* opened, const std::string& today) const;
    bool moveAside();

    std::string file_;
    Retention retention_;
    std::string damaged_;
};

} // namespace brovin::posix
