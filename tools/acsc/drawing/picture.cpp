#include "acsc/drawing/picture.h"

#include <QPainter>
#include <QSvgRenderer>

#include <algorithm>
#include <string_view>

namespace brovin::acsc {
namespace {

/// Samples a pixel, each way; the renderer's own smooth edges come on top.
constexpr int kSamples = 2;

/// The colour of premultiplied samples: 0 where less than half is covered.
std::uint32_t coloured(const QRgb* above, const QRgb* below) {
    static_assert(kSamples == 2);
    // Two channels at once, 16 bits each: red and blue, alpha and green.
    constexpr std::uint32_t kEven = 0x00FF00FFU;
    std::uint32_t redBlue = 0;
    std::uint32_t alphaGreen = 0;
    for (const QRgb sample : {above[0], above[1], below[0], below[1]}) {
        redBlue += sample & kEven;
        alphaGreen += sample >> 8U & kEven;
    }
    constexpr std::uint32_t kAll = 255U * kSamples * kSamples;
    const std::uint32_t alpha = alphaGreen >> 16U;
    if (alpha < kAll / 2)
        return 0;
    const auto unmixed = [alpha](std::uint32_t value) {
        return std::min<std::uint32_t>(255U, (value * 255U + alpha / 2) / alpha);
    };
    return 0xFF000000U | unmixed(redBlue >> 16U) << 16U | unmixed(alphaGreen & 0xFFFFU) << 8U |
           unmixed(redBlue & 0xFFFFU);
}

Picture blank(int width, int height) {
    return {width, height,
            std::vector<std::uint32_t>(static_cast<std::size_t>(width) * static_cast<std::size_t>(height))};
}

/// The box of the places for which `marked` holds.
template <class Marked>
Box boxOf(int width, int height, const Marked& marked) {
    int left = width;
    int right = -1;
    int top = height;
    int bottom = -1;
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            if (marked(x, y)) {
                left = std::min(left, x);
                right = std::max(right, x);
                top = std::min(top, y);
                bottom = y;
            }
    return right < 0 ? Box{} : Box{left, top, right - left + 1, bottom - top + 1};
}

std::size_t hashOf(const Picture& picture) {
    const auto* const bytes = reinterpret_cast<const char*>(picture.pixels.data());
    return std::hash<std::string_view>()({bytes, picture.pixels.size() * sizeof(std::uint32_t)});
}

} // namespace

Picture drawSvg(const QByteArray& svg, QSize size) {
    return drawPicture(
        size, [&](QPainter& painter, const QRectF& frame) { QSvgRenderer(svg).render(&painter, frame); });
}

Picture drawPicture(QSize size, const std::function<void(QPainter&, const QRectF&)>& draw) {
    QImage large(size * kSamples, QImage::Format_ARGB32_Premultiplied);
    large.fill(Qt::transparent);
    QPainter painter(&large);
    painter.setRenderHint(QPainter::Antialiasing);
    draw(painter, QRectF(large.rect()));
    painter.end();
    Picture picture = blank(size.width(), size.height());
    std::size_t i = 0;
    for (int y = 0; y < picture.height; ++y) {
        const auto* above = reinterpret_cast<const QRgb*>(large.constScanLine(y * kSamples));
        const auto* below = reinterpret_cast<const QRgb*>(large.constScanLine(y * kSamples + 1));
        for (int x = 0; x < picture.width; ++x, above += kSamples, below += kSamples)
            picture.pixels[i++] = coloured(above, below);
    }
    return picture;
}

Picture fromImage(const QImage& image) {
    const QImage plain = image.convertToFormat(QImage::Format_ARGB32);
    Picture picture = blank(plain.width(), plain.height());
    std::size_t i = 0;
    for (int y = 0; y < picture.height; ++y)
        for (int x = 0; x < picture.width; ++x, ++i)
            if (const QRgb pixel = plain.pixel(x, y); qAlpha(pixel) >= 128)
                picture.pixels[i] = pixel | 0xFF000000U;
    return picture;
}

QImage toImage(const Picture& picture) {
    QImage image(picture.width, picture.height, QImage::Format_ARGB32);
    for (int y = 0; y < picture.height; ++y)
        for (int x = 0; x < picture.width; ++x)
            image.setPixel(x, y, picture.at(x, y));
    return image;
}

Box contentOf(const Picture& picture) {
    return boxOf(picture.width, picture.height, [&](int x, int y) { return picture.at(x, y) != 0; });
}

Box differenceOf(const std::vector<const Picture*>& pictures) {
    const Picture& first = *pictures.front();
    return boxOf(first.width, first.height, [&](int x, int y) {
        return std::any_of(pictures.begin(), pictures.end(),
                           [&](const Picture* other) { return other->at(x, y) != first.at(x, y); });
    });
}

Picture cut(const Picture& picture, const Box& box) {
    Picture result = blank(box.width, box.height);
    std::size_t i = 0;
    for (int y = box.top; y < box.top + box.height; ++y)
        for (int x = box.left; x < box.left + box.width; ++x)
            result.pixels[i++] = picture.at(x, y);
    return result;
}

std::size_t PictureStore::add(const Picture& picture) {
    const std::size_t hash = hashOf(picture);
    const auto [from, to] = byHash_.equal_range(hash);
    for (auto same = from; same != to; ++same)
        if (pictures_[same->second] == picture)
            return same->second;
    pictures_.push_back(picture);
    byHash_.emplace(hash, pictures_.size() - 1);
    return pictures_.size() - 1;
}

} // namespace brovin::acsc
