#pragma once

#include "cleaner/folder_sweep.h"
#include "headless/command_line.h"
#include "headless/console.h"
#include "language/message_table.h"

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>

namespace brovin::headless {

/// Tells what a scan does: each deletion as it happens, a summary at the end, and meanwhile, on a terminal,
/// where it is.
class ScanReport {
public:
    ScanReport(const ScanOptions& options, const Console& console, const language::MessageTable& messages)
        : options_(options), console_(console), messages_(messages) {}

    void deletion(const cleaner::Deletion& deletion);
    void folderFailed(const std::string& path, const std::string& reason);
    void progress(const std::string& text);
    /// The disk lets the sweep wait in this folder, still or again.
    void waiting(const std::string& path);
    void summary(const cleaner::FolderSweep& sweep);

    /// Whether all folders were swept and all that was tried is deleted; known once there is a summary.
    [[nodiscard]] bool complete() const { return failed_ == 0 && foldersFailed_ == 0 && !leftOut_; }

private:
    void clearProgress();

    const ScanOptions& options_;
    Console console_;
    const language::MessageTable& messages_;
    std::uint64_t tried_ = 0;
    std::uint64_t failed_ = 0;
    std::uint64_t foldersFailed_ = 0;
    bool leftOut_ = false; ///< subfolders were not visited
    std::int64_t kb_ = 0;  ///< of what was really deleted
    std::chrono::steady_clock::time_point nextProgress_{};
    bool progressShown_ = false;
    std::optional<std::chrono::steady_clock::time_point> waitingSince_; ///< in the folder where the sweep is
};

} // namespace brovin::headless
