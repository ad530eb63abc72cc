// Draws the program's moving picture from its SVG layers: parcels fall out of a cloud into a basket on the
// mascot's head, for ever. Usage: make_animation PICTURES-FOLDER OUTPUT.AVI

#include "avi_file.h"

#include <QFile>
#include <QGuiApplication>
#include <QPainter>
#include <QSvgRenderer>

#include <cmath>
#include <iostream>
#include <numbers>

namespace {

constexpr int kFrames = 24;
constexpr int kFramesPerSecond = 12;
constexpr QSize kSize(192, 128);
constexpr int kParcels = 3;

/// The layers, drawn at any place and size.
struct Layers {
    explicit Layers(const QString& folder)
        : back(folder + "/download/back.svg"), cloud(folder + "/download/cloud.svg"),
          parcel(folder + "/download/parcel.svg"), basket(folder + "/download/basket.svg"),
          mascot(folder + "/brovin.svg") {}

    [[nodiscard]] bool valid() const {
        return back.isValid() && cloud.isValid() && parcel.isValid() && basket.isValid() && mascot.isValid();
    }

    QSvgRenderer back;
    QSvgRenderer cloud;
    QSvgRenderer parcel;
    QSvgRenderer basket;
    QSvgRenderer mascot;
};

/// How far a parcel has fallen at `moment` of its way, both 0 to 1: faster and faster.
double fallen(double moment) {
    return moment * moment;
}

QImage drawFrame(Layers& layers, double moment) {
    QImage frame(kSize, QImage::Format_RGB32);
    QPainter painter(&frame);
    painter.setRenderHint(QPainter::Antialiasing);
    layers.back.render(&painter, QRectF(QPointF(), kSize));

    // Each landing makes the head nod.
    const double sinceLanding = std::fmod(moment * kParcels, 1.0);
    const double nod = 4 * std::exp(-5 * sinceLanding) * std::cos(6 * sinceLanding);
    const double drift = 5 * std::sin(2 * std::numbers::pi * moment);
    layers.mascot.render(&painter, QRectF(64, 66 + nod, 64, 64));
    for (int i = 0; i < kParcels; ++i) {
        const double way = std::fmod(moment + static_cast<double>(i) / kParcels, 1.0);
        const double x = 96 + (1 - way) * 16 * (i - 1);
        const double y = 32 + fallen(way) * 40;
        painter.save();
        painter.translate(x, y);
        painter.rotate((1 - way) * 40 * (i - 1));
        layers.parcel.render(&painter, QRectF(-9, -9, 18, 18));
        painter.restore();
    }
    layers.basket.render(&painter, QRectF(68, 62 + nod, 56, 26));
    layers.cloud.render(&painter, QRectF(44 + drift, 4, 104, 43));
    return frame;
}

} // namespace

int main(int argc, char** argv) {
    const QGuiApplication application(argc, argv);
    const QStringList arguments = QGuiApplication::arguments();
    if (arguments.size() != 3) {
        std::cerr << "Usage: make_animation PICTURES-FOLDER OUTPUT.AVI\n";
        return 2;
    }
    Layers layers(arguments[1]);
    QList<QImage> frames;
    for (int i = 0; layers.valid() && i < kFrames; ++i)
        frames.append(drawFrame(layers, static_cast<double>(i) / kFrames));
    QFile file(arguments[2]);
    if (frames.isEmpty() || !file.open(QIODevice::WriteOnly) ||
        file.write(brovin::avi::aviFile(frames, kFramesPerSecond)) < 0 || !file.flush()) {
        std::cerr << "make_animation: "
                  << (frames.isEmpty() ? "a layer is missing" : "the file cannot be written") << "\n";
        return 1;
    }
    return 0;
}
