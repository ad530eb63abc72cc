#include "posix/disk_pace.h"

#include <sys/resource.h>

#include <algorithm>
#include <utility>

namespace brovin::posix {
namespace {

using namespace std::chrono_literals;

constexpr std::chrono::nanoseconds kFastAgain = 20us;
constexpr std::chrono::nanoseconds kMostThatCounts =
    300us; ///< so that one folder among others makes no disk slow
constexpr std::chrono::nanoseconds kOfEachKilobyte = 10us; ///< more than a warm disk needs
constexpr int kFolders = 16;                               ///< that the mean is of, at most

/// How often this thread has given up the processor of itself.
long timesWaited() {
    rusage used{};
    ::getrusage(RUSAGE_THREAD, &used);
    return used.ru_nvcsw;
}

} // namespace

FolderWatch::FolderWatch() : timesWaited_(timesWaited()) {}

std::optional<std::chrono::nanoseconds> FolderWatch::stop(std::size_t bytes) {
    const std::chrono::nanoseconds took =
        Clock::now() - begin_ - kOfEachKilobyte * static_cast<long>(bytes / 1024);
    if (took <= DiskPace::kFast)
        return std::max(took, 0ns);
    const long before = std::exchange(timesWaited_, timesWaited());
    return before < timesWaited_ ? std::optional(took) : std::nullopt;
}

void DiskPace::note(std::optional<std::chrono::nanoseconds> took) {
    if (!took)
        return;
    folders_ = std::min(folders_ + 1, kFolders);
    mean_ += (std::min(*took, kMostThatCounts) - mean_) / folders_;
    slow_ = mean_ > (slow_ ? kFastAgain : kFast);
}

} // namespace brovin::posix
