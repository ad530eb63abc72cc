#pragma once

namespace brovin::desktop {

/// Teaches the toolkit what the program's own widgets are to a screen reader: the window, tabs, links and
/// pictures.
void installAccessibility();

} // namespace brovin::desktop
