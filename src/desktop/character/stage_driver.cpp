#include "desktop/character/stage_driver.h"

#include <chrono>
#include <utility>

namespace brovin::desktop {
namespace {

character::Moment now() {
    return std::chrono::time_point_cast<character::Milliseconds>(std::chrono::steady_clock::now());
}

} // namespace

StageDriver::StageDriver(character::Stage& stage, std::function<void(character::Event)> tell)
    : stage_(stage), tell_(std::move(tell)) {
    timer_.setSingleShot(true);
    timer_.setTimerType(Qt::PreciseTimer);
    QObject::connect(&timer_, &QTimer::timeout, [this] { call(); });
}

void StageDriver::callSoon() {
    timer_.start(0);
}

void StageDriver::setPaused(bool paused) {
    paused_ = paused;
    callSoon(); // and what was due meanwhile is not waited for
}

void StageDriver::call() {
    const character::Wake wake = stage_.advance(now());
    if (wake && !paused_)
        timer_.start(std::max(*wake - now(), character::Milliseconds{0}));
    while (auto event = stage_.takeEvent())
        tell_(std::move(*event));
}

} // namespace brovin::desktop
