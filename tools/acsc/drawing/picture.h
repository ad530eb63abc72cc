#pragma once

#include <QByteArray>
#include <QImage>
#include <QPainter>
#include <QSize>

#include <cstdint>
#include <functional>
#include <map>
#include <vector>

namespace brovin::acsc {

/// Pixels 0xFFRRGGBB, or 0 where nothing is; the top row first.
struct Picture {
    int width = 0;
    int height = 0;
    std::vector<std::uint32_t> pixels;

    bool operator==(const Picture&) const = default;
    [[nodiscard]] std::uint32_t at(int x, int y) const { return pixels[place(x, y)]; }
    void set(int x, int y, std::uint32_t pixel) { pixels[place(x, y)] = pixel; }

private:
    [[nodiscard]] std::size_t place(int x, int y) const {
        return static_cast<std::size_t>(y) * static_cast<std::size_t>(width) + static_cast<std::size_t>(x);
    }
};

struct Box {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;
    [[nodiscard]] bool empty() const { return width <= 0 || height <= 0; }
};

/// Has something drawn into a larger frame than `size`, which is given to `draw`. A pixel is there when half
/// of it or more is covered, and has the colour of what covers it, not mixed with what lies behind.
[[nodiscard]] Picture drawPicture(QSize size, const std::function<void(QPainter&, const QRectF&)>& draw);
/// The same of an SVG text.
[[nodiscard]] Picture drawSvg(const QByteArray& svg, QSize size);

/// An image file's picture: what is half opaque or more is there.
[[nodiscard]] Picture fromImage(const QImage& image);
[[nodiscard]] QImage toImage(const Picture& picture);

/// The smallest box with all pixels that are there, or in which any of the pictures differ.
[[nodiscard]] Box contentOf(const Picture& picture);
[[nodiscard]] Box differenceOf(const std::vector<const Picture*>& pictures);
[[nodiscard]] Picture cut(const Picture& picture, const Box& box);

/// The pictures of a character, equal ones kept once.
class PictureStore {
public:
    [[nodiscard]] std::size_t add(const Picture& picture);
    [[nodiscard]] const std::vector<Picture>& all() const { return pictures_; }

private:
    std::vector<Picture> pictures_;
    std::multimap<std::size_t, std::size_t> byHash_;
};

} // namespace brovin::acsc
