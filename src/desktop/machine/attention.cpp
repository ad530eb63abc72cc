#include "desktop/machine/attention.h"

#include "desktop/x11/x11_desktop.h"

namespace brovin::desktop {

// `QWindow::alert` does nothing for a box that came up by itself: the toolkit takes the only window of a
// program for the one with the keyboard, whoever really has it.
void demandAttention(const QWindow& window) {
    askForWindowStates(window, {"_NET_WM_STATE_DEMANDS_ATTENTION"});
}

} // namespace brovin::desktop
