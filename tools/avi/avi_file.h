#pragma once

#include <QByteArray>
#include <QImage>
#include <QList>

namespace brovin::avi {

/// A video file (RIFF AVI) of run-length encoded pictures with one palette of 256 colours: small for flat
/// drawings, and known to every player. The frames are of one size. Colours beyond the 256 most frequent ones
/// become the nearest of these.
[[nodiscard]] QByteArray aviFile(const QList<QImage>& frames, int framesPerSecond);

} // namespace brovin::avi
