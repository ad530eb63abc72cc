#pragma once

#include <chrono>
#include <cstddef>
#include <optional>

namespace brovin::posix {

/// Measures how long a folder lets one thread wait.
class FolderWatch {
public:
    using Clock = std::chrono::steady_clock;

    FolderWatch();
    void start() { begin_ = Clock::now(); }

    /// The time since the start, less what reading so many bytes takes anywhere. nullopt: the thread waited
    /// for nothing, so that others had the processor, and the time says nothing about the disk.
    std::optional<std::chrono::nanoseconds> stop(std::size_t bytes);

private:
    Clock::time_point begin_{};
    long timesWaited_;
};

enum class ReadingAhead { WhereSlow, Always };

/// Whether a disk is worth reading ahead on.
class DiskPace {
public:
    explicit DiskPace(ReadingAhead when) : always_(when == ReadingAhead::Always) {}

    static constexpr std::chrono::nanoseconds kFast = std::chrono::microseconds(50); ///< a folder at most

    void note(std::optional<std::chrono::nanoseconds> took);

    /// From when the first folder really had to be waited for, or later some of the last ones, until many
    /// were fast again. The first counts alone: what it tells of may all be read ahead.
    [[nodiscard]] bool slow() const { return slow_ || always_; }

private:
    std::chrono::nanoseconds mean_{0};
    int folders_ = 0;
    bool slow_ = false;
    bool always_;
};

} // namespace brovin::posix
