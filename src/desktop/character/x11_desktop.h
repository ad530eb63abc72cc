#pragma once

#include <QWidget>

namespace brovin::desktop {

/// Whether the desktop blends windows with what is below them. Where it does not, half transparent pixels
/// come out dark.
[[nodiscard]] bool desktopBlends();

/// Asks the window manager to keep a window above all others and out of task bars and pagers. Holds for one
/// showing: to be called behind each. What is said beforehand, a window manager that is still busy with the
/// window's last disappearance would take for old and forget.
void keepOnTopAndOffTaskBar(const QWidget& window);

} // namespace brovin::desktop
