#pragma once

#include <QRegion>
#include <QWidget>

#include <cstdint>
#include <functional>

namespace brovin::desktop {

/// What a shape does to a window.
enum class Cut : std::uint8_t {
    Sight, ///< nothing of the window is beyond it, neither to be seen nor to be clicked
    Clicks ///< what is beyond it is seen as it is painted, and clicks there reach what lies below
};

/// Takes from a window the shapes that it was given.
void makeWhole(const QWidget& window);

/// Gives a window its shape, in pixels of the screen, and has it painted by `paint`: on the screen both
/// change at once, whoever looks, the window manager's own frame around the window included. An empty shape
/// stands for none of the window.
void cutOut(QWidget& window, const QRegion& shape, Cut cut, const std::function<void()>& paint);

} // namespace brovin::desktop
