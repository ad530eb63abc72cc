#pragma once

#include <QRect>
#include <QSize>
#include <QVector>

namespace brovin::desktop {

/// Where a window comes up that is shown for the first time: in the middle of `room`, or as near to it as
/// leaves the characters in sight, with room for their balloons if possible. It becomes narrower for them,
/// down to `leastWidth`; where even that is not enough, it stays in the middle. All sizes with the window's
/// frame.
///
/// `company`: areas to keep clear of; the ones that matter most come last, and are kept clear alone where
/// there is no room for all.
[[nodiscard]] QRect placeBeside(const QVector<QRect>& company, QSize wanted, int leastWidth,
                                const QRect& room);

} // namespace brovin::desktop
