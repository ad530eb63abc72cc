#pragma once

#include "ui/controls.h"

#include <QTimer>

#include <functional>

namespace brovin::desktop {

/// Keeps the time for one of the program's timers. A tick that falls due while `busy` says so is held until
/// the program is free: while a question is open, other events wait.
class TimerBinding final {
public:
    TimerBinding(ui::Timer& control, std::function<bool()> busy);

private:
    void follow();
    void fire();

    ui::Timer& control_;
    std::function<bool()> busy_;
    QTimer timer_;
};

} // namespace brovin::desktop
