#include "posix/disk_pace.h"

#include <sys/resource.h>

#include <algorithm>
#include <utility>

namespace brovin::posix {
namespace {

using namespace std::chrono_literals;

constexpr std::chrono::nanoseconds kFastAgain = 20us;
constexpr std::chrono::nanoseconds kMostThatCounts = 2ms;
constexpr std::chrono::nanoseconds kOfEachKilobyte = 10us; ///< more than a warm disk needs
constexpr int kFolders = 16;                               ///< that the mean is of

long timesInterrupted() {
    rusage used{};
    ::getrusage(RUSAGE_THREAD, &used);
    return used.ru_nivcsw;
}

} // namespace

FolderWatch::FolderWatch() : timesInterrupted_(timesInterrupted()) {}

std::optional<std::chrono::nanoseconds> FolderWatch::stop(std::size_t bytes) {
    const std::chrono::nanoseconds took =
        Clock::now() - begin_ - kOfEachKilobyte * static_cast<long>(bytes / 1024);
    if (took <= DiskPace::kFast)
        return std::max(took, 0ns);
    const long before = std::exchange(timesInterrupted_, timesInterrupted());
    return before == timesInterrupted_ ? std::optional(took) : std::nullopt;
}

void DiskPace::note(std::optional<std::chrono::nanoseconds> took) {
    if (!took)
        return;
    mean_ += (std::min(*took, kMostThatCounts) - mean_) / kFolders;
    slow_ = mean_ > (slow_ ? kFastAgain : kFast);
}

} // namespace brovin::posix
