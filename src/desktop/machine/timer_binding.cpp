#include "desktop/machine/timer_binding.h"

#include <chrono>
#include <utility>

namespace brovin::desktop {
namespace {
constexpr std::chrono::milliseconds kAskAgain{250}; ///< whether a held tick can be let go
}

TimerBinding::TimerBinding(ui::Timer& control) : control_(control) {
    QObject::connect(&timer_, &QTimer::timeout, [this] { fire(); });
    control.observe([this] { follow(); });
}

TimerBinding::TimerBinding(ui::Timer& control, Initiative& initiative, std::function<bool()> busy)
    : TimerBinding(control) {
    initiative_ = &initiative;
    busy_ = std::move(busy);
    timer_.setTimerType(Qt::PreciseTimer); // the usual kind rounds half a minute to whole seconds
    follow();
}

TimerBinding::TimerBinding(ui::Timer& control, ui::Window& window) : TimerBinding(control) {
    window_ = &window;
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
    if (busy_ && busy_()) {
        timer_.start(kAskAgain);
        return;
    }
    if (timer_.intervalAsDuration() != control_.interval())
        timer_.start(control_.interval());
    if (initiative_ == nullptr) {
        control_.tick();
        return;
    }
    const Initiative::ByTheClock nobodyAsked(*initiative_);
    control_.tick();
}

} // namespace brovin::desktop
