#pragma once

#include <QPoint>
#include <QRect>
#include <QWidget>

#include <optional>

namespace brovin::desktop {

/// The topmost window of any program at a place, leaving out characters, balloons and what fills the whole
/// screen, such as the desktop. nullopt: there is none, or the desktop does not tell what windows there are.
/// The server is asked twice, however many windows there are.
[[nodiscard]] std::optional<QRect> windowBelow(QPoint place, const QWidget& asking);

} // namespace brovin::desktop
