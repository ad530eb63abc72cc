#pragma once

#include "acsc/problems.h"
#include "character/bitmap.h"

#include <QByteArray>
#include <QImage>
#include <QString>

namespace brovin::acsc {

[[nodiscard]] QImage imageOf(const character::Bitmap& bitmap);

/// An animated PNG that repeats itself: as in the extension of PNG by animation, a header, and before each
/// picture how long it stays. Readers without animation show the first one.
class MovingPng {
public:
    /// All pictures are of one size. `hundredths` of a second, at most 65535.
    void add(const character::Bitmap& bitmap, int hundredths);
    void save(const QString& path, Problems& problems) const;

private:
    QByteArray header_;
    QByteArray body_;
    quint32 pictures_ = 0;
    quint32 sequence_ = 0;
};

} // namespace brovin::acsc
