#pragma once

#include <QFontMetrics>
#include <QSize>
#include <QString>

namespace brovin::desktop {

/// What of a box's text leaves room for its buttons on a screen of this size, in pixels: paths and other long
/// words and paragraphs are cut in the middle, and so is a text of too many lines.
[[nodiscard]] QString fittingText(const QString& text, const QFontMetrics& letters, QSize screen);

} // namespace brovin::desktop
