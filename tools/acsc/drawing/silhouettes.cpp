#include "acsc/drawing/silhouettes.h"

#include "acsc/drawing/film.h"
#include "acsc/drawing/sheet.h"
#include "acsc/movement/movement.h"

#include <QImage>
#include <QPainter>

namespace brovin::acsc {
namespace {

constexpr int kPerRow = 12;
constexpr int kNameHeight = 14;

int tellingFrame(const AnimationSource& animation) {
    if (animation.holds)
        return *animation.holds;
    return animation.loop ? (animation.loop->from + animation.loop->to) / 2 : animation.length() / 2;
}

QImage silhouette(const Picture& picture) {
    QImage image(picture.width, picture.height, QImage::Format_RGB32);
    image.fill(Qt::white);
    for (int y = 0; y < picture.height; ++y)
        for (int x = 0; x < picture.width; ++x)
            if (picture.at(x, y) != 0)
                image.setPixel(x, y, 0xFF000000U);
    return image;
}

} // namespace

void writeSilhouettes(const CharacterSource& source, const QString& path, const QStringList& animations,
                      Problems& problems) {
    const auto all = chosenAnimations(source, animations, problems);
    if (!problems.none() || all.empty())
        return;
    const int rows = (static_cast<int>(all.size()) + kPerRow - 1) / kPerRow;
    const QSize cell = source.size + QSize(0, kNameHeight);
    QImage sheet(kPerRow * cell.width(), rows * cell.height(), QImage::Format_RGB32);
    sheet.fill(Qt::white);
    QPainter painter(&sheet);
    QFont font = painter.font();
    font.setPixelSize(11);
    painter.setFont(font);
    Camera camera(source, problems);
    int number = 0;
    for (const AnimationSource* animation : all) {
        // What moves by the rig needs no more than the one frame.
        const FilmedAnimation filmed = animation->fromRig
                                           ? FilmedAnimation{animation, posesOf(*animation, *source.rig), {}}
                                           : camera.film(*animation);
        const QPoint place(number % kPerRow * cell.width(), number / kPerRow * cell.height());
        painter.drawImage(place, silhouette(camera.whole(filmed, tellingFrame(*animation))));
        painter.drawText(QRect(place + QPoint(0, source.size.height()), QSize(cell.width(), kNameHeight)),
                         Qt::AlignCenter, animation->name);
        ++number;
    }
    painter.end();
    savePicture(sheet, path, problems);
}

} // namespace brovin::acsc
