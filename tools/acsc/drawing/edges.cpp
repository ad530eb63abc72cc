#include "acsc/drawing/edges.h"

#include "acsc/drawing/film.h"

#include <array>

namespace brovin::acsc {
namespace {

constexpr std::array<const char*, 4> kSides = {"left", "top", "right", "bottom"};

std::array<bool, 4> touched(const Picture& picture) {
    const Box box = contentOf(picture);
    if (box.empty())
        return {};
    return {box.left == 0, box.top == 0, box.left + box.width == picture.width,
            box.top + box.height == picture.height};
}

} // namespace

QStringList touchedEdges(const CharacterSource& source, Problems& problems) {
    QStringList lines;
    Camera camera(source, problems);
    for (const AnimationSource& animation : source.animations) {
        const FilmedAnimation filmed = camera.film(animation);
        std::array<QStringList, 4> frames;
        for (int frame = 0; frame < animation.length(); ++frame) {
            const auto sides = touched(camera.whole(filmed, frame));
            for (std::size_t side = 0; side < sides.size(); ++side)
                if (sides[side])
                    frames[side].append(QString::number(frame));
        }
        for (std::size_t side = 0; side < frames.size(); ++side)
            if (!frames[side].isEmpty())
                lines.append(QStringLiteral("%1: %2 in frames %3")
                                 .arg(animation.name, QLatin1String(kSides[side]),
                                      frames[side].join(QStringLiteral(", "))));
    }
    return lines;
}

} // namespace brovin::acsc
