#pragma once

#include <QImage>
#include <QRegion>

namespace brovin::desktop {

/// Where a picture of 32 bits a pixel is not fully transparent; of one with more holes and edges than a
/// window's shape should have, with its surroundings. Empty: nowhere.
[[nodiscard]] QRegion opaqueRegion(const QImage& picture);

} // namespace brovin::desktop
