#include "desktop/widgets/pictures.h"

#include <QPainter>
#include <QPixmapCache>
#include <QSvgRenderer>

namespace brovin::desktop {

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
    QIcon icon;
    for (const int size : {16, 22, 24, 32, 48, 64, 128})
        icon.addPixmap(picture(QStringLiteral("brovin"), size, 1));
    return icon;
}

} // namespace brovin::desktop
