#include "acsc/drawing/film.h"
#include "acsc/problems.h"
#include "acsc/sources/character_source.h"
#include "character/enlarger.h"

#include <QGuiApplication>
#include <QPainter>
#include <QSvgRenderer>

#include <array>
#include <cmath>
#include <cstdio>

/// How like enlarged frames are to the same drawings in that size, beside the toolkit's own ways of scaling.
/// Usage: likeness FOLDER-OF-A-CHARACTER [PICTURE.png]; the picture has the first animation at 200 % in all
/// four ways. Needs no display with QT_QPA_PLATFORM=offscreen.
namespace {

using namespace brovin;

constexpr std::array kPercents = {150, 200, 300};
constexpr int kAnimations = 20;

/// Drawn with its edges smooth, at twice the size and reduced.
QImage drawnAnew(const QByteArray& svg, QSize size) {
    QImage large(size * 2, QImage::Format_ARGB32_Premultiplied);
    large.fill(Qt::transparent);
    QPainter painter(&large);
    painter.setRenderHint(QPainter::Antialiasing);
    QSvgRenderer(svg).render(&painter, QRectF(large.rect()));
    painter.end();
    return large.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

QImage enlarged(const acsc::Picture& picture, QSize size) {
    const auto narrow = [](int side) { return static_cast<std::uint16_t>(side); };
    character::Enlarger enlarger;
    const character::Bitmap& large =
        enlarger.enlarge({narrow(picture.width), narrow(picture.height), picture.pixels},
                         {narrow(size.width()), narrow(size.height())});
    return QImage(reinterpret_cast<const uchar*>(large.pixels.data()), large.width, large.height,
                  QImage::Format_ARGB32_Premultiplied)
        .copy();
}

QImage onWhite(const QImage& picture) {
    QImage flat(picture.size(), QImage::Format_RGB32);
    flat.fill(Qt::white);
    QPainter(&flat).drawImage(0, 0, picture);
    return flat;
}

/// In decibels, the more the liker.
double likeness(const QImage& a, const QImage& b) {
    double squares = 0;
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x) {
            const QRgb p = a.pixel(x, y);
            const QRgb q = b.pixel(x, y);
            for (const int difference : {qRed(p) - qRed(q), qGreen(p) - qGreen(q), qBlue(p) - qBlue(q)})
                squares += difference * difference;
        }
    return 10 * std::log10(255.0 * 255 * 3 * a.width() * a.height() / squares);
}

void save(const std::array<QImage, 4>& pictures, const QString& path) {
    const QSize size = pictures.front().size();
    QImage row(size.width() * 4, size.height(), QImage::Format_RGB32);
    row.fill(QColor(90, 110, 140));
    QPainter painter(&row);
    for (int i = 0; i < 4; ++i)
        painter.drawImage(i * size.width(), 0, pictures[static_cast<std::size_t>(i)]);
    painter.end();
    row.save(path);
}

} // namespace

int main(int argc, char** argv) {
    const QGuiApplication application(argc, argv);
    acsc::Problems problems;
    const auto source = acsc::readCharacterSource(QString::fromLocal8Bit(argc > 1 ? argv[1] : "."), problems);
    if (!source.rig)
        return 1;
    acsc::Camera camera(source, problems);
    for (const int percent : kPercents) {
        const QSize size = source.size * percent / 100;
        std::array<double, 3> sums{};
        int count = 0;
        for (const acsc::AnimationSource& animation : source.animations) {
            if (!animation.fromRig || count == kAnimations)
                continue;
            const acsc::FilmedAnimation filmed = camera.film(animation);
            const int frame = animation.standing();
            const acsc::Picture small = camera.whole(filmed, frame);
            const QImage plain = acsc::toImage(small).convertToFormat(QImage::Format_ARGB32_Premultiplied);
            const std::array ways = {
                plain.scaled(size), plain.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation),
                enlarged(small, size), drawnAnew(source.rig->svg(filmed.poses[std::size_t(frame)]), size)};
            for (std::size_t way = 0; way < sums.size(); ++way)
                sums[way] += likeness(onWhite(ways[way]), onWhite(ways[3]));
            if (count++ == 0 && percent == 200 && argc > 2)
                save(ways, QString::fromLocal8Bit(argv[2]));
        }
        std::printf("%d %%: blocks %.1f dB, the toolkit's smooth scaling %.1f dB, enlarged %.1f dB\n",
                    percent, sums[0] / count, sums[1] / count, sums[2] / count);
    }
    return 0;
}
