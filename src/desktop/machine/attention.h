#pragma once

class QWindow;

namespace brovin::desktop {

/// Has the task bar show that a window waits, until it is looked at (Extended Window Manager Hints,
/// _NET_WM_STATE_DEMANDS_ATTENTION). Does nothing elsewhere than on X11.
void demandAttention(const QWindow& window);

} // namespace brovin::desktop
