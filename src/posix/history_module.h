#pragma once

#include "platform/deletion_history.h"

#include <memory>
#include <string>

namespace brovin::posix {

/// The history from a module that is loaded with the first use, so that neither a start nor a scan that finds
/// nothing waits for a database. Once loaded it stays.
class HistoryModule final : public platform::DeletionHistory {
public:
    /// `file` is the history; `module` is looked for as the system looks for libraries.
    explicit HistoryModule(std::string file, std::string module = historyModuleFile())
        : file_(std::move(file)), module_(std::move(module)) {}

    // Where the module, or a library that it needs, is not installed, these fail.
    platform::Status append(platform::DateTime when, std::span<const platform::DeletedShare> shares) override;
    platform::Result<std::vector<platform::Score>> score(platform::ScoreBy by, std::size_t most) override;
    std::string takeDamaged() override;

private:
    using Opener = platform::DeletionHistory* (*)(const std::string&);

    /// The one that is installed with the program.
    [[nodiscard]] static std::string historyModuleFile();
    /// nullptr: it is not to be had.
    platform::DeletionHistory* loaded();

    std::string file_;
    std::string module_;
    std::unique_ptr<platform::DeletionHistory> history_;
};

} // namespace brovin::posix
