#include "desktop/character/stage_driver.h"

#include <algorithm>
#include <chrono>
#include <ctime>
#include <utility>

namespace brovin::desktop {
namespace {

character::Moment now() {
    return std::chrono::time_point_cast<character::Milliseconds>(std::chrono::steady_clock::now());
}

/// A call that takes longer than the first is followed by a rest of so many times as long as it took. What it
/// has drawn is still to be brought to the screen, which takes about as long again.
constexpr std::chrono::milliseconds kEasyCall{3};
constexpr int kRest = 6;

/// Processor time of this thread, to which what else the machine is at adds nothing.
std::chrono::nanoseconds worked() {
    timespec time{};
    ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
}

} // namespace

StageDriver::StageDriver(character::Stage& stage, std::function<void(character::Event)> tell)
    : stage_(stage), tell_(std::move(tell)) {
    timer_.setSingleShot(true);
    timer_.setTimerType(Qt::PreciseTimer);
    QObject::connect(&timer_, &QTimer::timeout, [this] { call(); });
}

void StageDriver::callSoon() {
    timer_.start(std::max(rested_ - now(), character::Milliseconds{0}));
}

void StageDriver::setPaused(bool paused) {
    paused_ = paused;
    callSoon(); // and what was due meanwhile is not waited for
}

void StageDriver::call() {
    const auto before = worked();
    const character::Wake wake = stage_.advance(now());
    const auto took = std::chrono::duration_cast<character::Milliseconds>(worked() - before);
    rested_ = now() + (took > kEasyCall ? kRest * took : character::Milliseconds{0});
    if (wake && !paused_)
        timer_.start(std::max(std::max(*wake, rested_) - now(), character::Milliseconds{0}));
    while (auto event = stage_.takeEvent())
        tell_(std::move(*event));
}

} // namespace brovin::desktop
