#pragma once

#include <QIcon>
#include <QPixmap>
#include <QString>

namespace brovin::desktop {

/// A picture of the program by its key, drawn from its SVG for a screen of this scale; null: no such picture.
/// `height` in device-independent pixels; the width follows from the drawing.
[[nodiscard]] QPixmap picture(const QString& key, int height, qreal scale);

/// The program's own icon in the sizes that desktops ask for.
[[nodiscard]] QIcon programIcon();

} // namespace brovin::desktop
