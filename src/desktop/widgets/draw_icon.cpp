// Draws the program's icon in the sizes that desktops ask for, one behind the other, so that no start has to
// read a drawing. Usage: draw_icon SVG-FILE RESULT

#include "icon_sizes.h"

#include <QFile>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>

int main(int argc, char** argv) {
    if (argc != 3)
        return 2;
    QSvgRenderer drawing(QString::fromLocal8Bit(argv[1]));
    QFile result(QString::fromLocal8Bit(argv[2]));
    if (!drawing.isValid() || !result.open(QIODevice::WriteOnly))
        return 1;
    for (const int size : brovin::desktop::kIconSizes) {
        QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        drawing.render(&painter);
        painter.end();
        if (result.write(reinterpret_cast<const char*>(image.constBits()), image.sizeInBytes()) < 0)
            return 1;
    }
    return result.flush() ? 0 : 1;
}
