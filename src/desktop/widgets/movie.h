#pragma once

#include <QImage>
#include <QList>
#include <QString>

#include <chrono>

namespace brovin::desktop {

/// A short moving picture, decoded as a whole.
struct Movie {
    QList<QImage> frames; ///< all of one size
    std::chrono::milliseconds interval{100};
};

/// Reads a video file of at most a few seconds; what does not fit is left off. No frames: missing or broken,
/// or there is no decoder. That one is loaded here for the first time, with the many libraries behind it.
[[nodiscard]] Movie readMovie(const QString& path);

} // namespace brovin::desktop
