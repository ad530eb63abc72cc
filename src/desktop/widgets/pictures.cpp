#include "desktop/widgets/pictures.h"

#include "desktop/widgets/icon_sizes.h"

#include <QIconEngine>
#include <QPainter>
#include <QPixmapCache>
#include <QResource>
#include <QSvgRenderer>

#include <algorithm>
#include <cstddef>

namespace brovin::desktop {
namespace {

/// Each size when it is asked for: as it was drawn when the program was built, any other from the drawing.
class ProgramIcon final : public QIconEngine {
public:
    QPixmap pixmap(const QSize& size, QIcon::Mode /*mode*/, QIcon::State /*state*/) override {
        const int side = std::min(size.width(), size.height());
        const QResource all(QStringLiteral(":/brovin.argb"));
        const uchar* pixels = all.data();
        for (const int drawn : kIconSizes) {
            if (drawn == side)
                return QPixmap::fromImage(QImage(pixels, side, side, qsizetype{kBytesAPixel} * side,
                                                 QImage::Format_ARGB32_Premultiplied));
            pixels += std::ptrdiff_t{kBytesAPixel} * drawn * drawn;
        }
        return picture(QStringLiteral("brovin"), side, 1);
    }
    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override {
        const qreal scale = painter->device()->devicePixelRatio();
        painter->drawPixmap(rect, pixmap(rect.size() * scale, mode, state));
    }
    QSize actualSize(const QSize& size, QIcon::Mode /*mode*/, QIcon::State /*state*/) override {
        const int side = std::min(size.width(), size.height());
        return {side, side};
    }
    QList<QSize> availableSizes(QIcon::Mode /*mode*/, QIcon::State /*state*/) override {
        QList<QSize> sizes;
        for (const int side : kIconSizes)
            sizes.append({side, side});
        return sizes;
    }
    [[nodiscard]] QIconEngine* clone() const override { return new ProgramIcon; }
};

} // namespace

QPixmap picture(const QString& key, int height, qreal scale) {
    if (key.isEmpty())
        return {};
    const QString cacheKey = QStringLiteral("%1/%2/%3").arg(key).arg(height).arg(scale);
    QPixmap drawn;
    if (QPixmapCache::find(cacheKey, &drawn))
        return drawn;
    QSvgRenderer drawing(QStringLiteral(":/pictures/%1.svg").arg(key));
    if (!drawing.isValid())
        return {};
    const QSizeF size = drawing.viewBoxF().size().scaled(1e6, height * scale, Qt::KeepAspectRatio);
    drawn = QPixmap(size.toSize());
    drawn.fill(Qt::transparent);
    QPainter painter(&drawn);
    drawing.render(&painter);
    painter.end();
    drawn.setDevicePixelRatio(scale);
    QPixmapCache::insert(cacheKey, drawn);
    return drawn;
}

QIcon programIcon() {
    return QIcon(new ProgramIcon);
}

} // namespace brovin::desktop
