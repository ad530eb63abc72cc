#include "desktop/timer_binding.h"

#include <chrono>
#include <utility>

namespace brovin::desktop {
namespace {
constexpr std::chrono::milliseconds kAskAgain{250}; ///< whether a held tick can be let go
}

TimerBinding::TimerBinding(ui::Timer& control, std::function<bool()> busy)
    : control_(control), busy_(std::move(busy)) {
    timer_.setTimerType(Qt::PreciseTimer); // the usual kind rounds half a minute to whole seconds
    QObject::connect(&timer_, &QTimer::timeout, [this] { fire(); });
    control.observe([this] { follow(); });
    follow();
}

TimerBinding::TimerBinding(ui::Timer& control, ui::Window& window)
    : TimerBinding(control, [] { return false; }) {
    window_ = &window;
    timer_.setTimerType(Qt::CoarseTimer); // which may wake the machine together with others
    window.observe([this] { follow(); });
    follow();
}

void TimerBinding::follow() {
    const bool seen = window_ == nullptr || window_->visible();
    const bool runs = control_.enabled() && control_.interval().count() > 0 && seen;
    if (!runs)
        timer_.stop();
    else if (!timer_.isActive() || timer_.intervalAsDuration() != control_.interval())
        timer_.start(control_.interval());
}

void TimerBinding::fire() {
    if (busy_()) {
        timer_.start(kAskAgain);
        return;
    }
    if (timer_.intervalAsDuration() != control_.interval())
        timer_.start(control_.interval());
    control_.tick();
}

} // namespace brovin::desktop
