#pragma once

#include "desktop/machine/initiative.h"
#include "ui/controls.h"
#include "ui/window.h"

#include <QTimer>

#include <chrono>
#include <functional>

namespace brovin::desktop {

/// Keeps the time for one of the program's timers. A tick that falls due while `busy` says so is held until
/// the program is free: while a question is open, other events wait.
class TimerBinding final {
public:
    TimerBinding(ui::Timer& control, Initiative& initiative, std::function<bool()> busy);
    /// A timer that only moves something on the screen: it stands still, and wakes nobody, while the window
    /// is hidden.
    TimerBinding(ui::Timer& control, ui::Window& window);

    /// Negative: it does not run.
    [[nodiscard]] std::chrono::milliseconds untilNextTick() const { return timer_.remainingTimeAsDuration(); }

private:
    explicit TimerBinding(ui::Timer& control);
    void follow();
    void fire();

    ui::Timer& control_;
    const ui::Window* window_ = nullptr;
    Initiative* initiative_ = nullptr;
    std::function<bool()> busy_;
    QTimer timer_;
};

} // namespace brovin::desktop
