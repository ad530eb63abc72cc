#include "acsc/drawing/silhouettes.h"

#include "acsc/drawing/film.h"
#include "acsc/drawing/sheet.h"
#include "acsc/movement/movement.h"

#include <QImage>
#include <QPainter>

#include <algorithm>

namespace brovin::acsc {
namespace {

constexpr int kPerRow = 13;
constexpr int kNameHeight = 14;

double overlapOf(const Picture& a, const Picture& b) {
    int both = 0;
    int either = 0;
    for (std::size_t i = 0; i < a.pixels.size(); ++i) {
        both += a.pixels[i] != 0 && b.pixels[i] != 0 ? 1 : 0;
        either += a.pixels[i] != 0 || b.pixels[i] != 0 ? 1 : 0;
    }
    return either == 0 ? 1 : static_cast<double>(both) / either;
}

Picture leastLikeTheFirst(Camera& camera, const FilmedAnimation& filmed) {
    const Picture first = camera.whole(filmed, 0);
    Picture found = first;
    double least = 1;
    for (int frame = 1; frame < filmed.source->length(); ++frame)
        if (Picture picture = camera.whole(filmed, frame); overlapOf(first, picture) < least) {
            least = overlapOf(first, picture);
            found = std::move(picture);
        }
    return found;
}

Picture tellingPicture(Camera& camera, const AnimationSource& animation, const CharacterSource& source) {
    // What moves by the rig needs no more than the one frame.
    const FilmedAnimation filmed = animation.fromRig
                                       ? FilmedAnimation{&animation, posesOf(animation, *source.rig), {}}
                                       : camera.film(animation);
    if (animation.holds)
        return camera.whole(filmed, *animation.holds);
    if (animation.loop)
        return camera.whole(filmed, (animation.loop->from + animation.loop->to) / 2);
    return leastLikeTheFirst(camera, filmed);
}

std::vector<Likeness> likenesses(const std::vector<const AnimationSource*>& animations,
                                 const std::vector<Picture>& pictures) {
    std::vector<Likeness> pairs;
    for (std::size_t i = 0; i < pictures.size(); ++i)
        for (std::size_t j = 0; j < i; ++j)
            pairs.push_back({animations[j]->name, animations[i]->name, overlapOf(pictures[j], pictures[i])});
    std::stable_sort(pairs.begin(), pairs.end(),
                     [](const Likeness& a, const Likeness& b) { return a.overlap > b.overlap; });
    return pairs;
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

std::vector<Likeness> writeSilhouettes(const CharacterSource& source, const QString& path,
                                       const QStringList& animations, Problems& problems) {
    const auto all = chosenAnimations(source, animations, problems);
    if (!problems.none() || all.empty())
        return {};
    const int rows = (static_cast<int>(all.size()) + kPerRow - 1) / kPerRow;
    const QSize cell = source.size + QSize(0, kNameHeight);
    QImage sheet(kPerRow * cell.width(), rows * cell.height(), QImage::Format_RGB32);
    sheet.fill(Qt::white);
    QPainter painter(&sheet);
    QFont font = painter.font();
    font.setPixelSize(11);
    painter.setFont(font);
    Camera camera(source, problems);
    std::vector<Picture> pictures;
    for (const AnimationSource* animation : all) {
        const int number = static_cast<int>(pictures.size());
        const QPoint place(number % kPerRow * cell.width(), number / kPerRow * cell.height());
        pictures.push_back(tellingPicture(camera, *animation, source));
        painter.drawImage(place, silhouette(pictures.back()));
        painter.drawText(QRect(place + QPoint(0, source.size.height()), QSize(cell.width(), kNameHeight)),
                         Qt::AlignCenter, animation->name);
    }
    painter.end();
    savePicture(sheet, path, problems);
    return likenesses(all, pictures);
}

} // namespace brovin::acsc
