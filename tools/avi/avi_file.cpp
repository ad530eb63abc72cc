#include "avi_file.h"

#include <QHash>

#include <algorithm>
#include <cstdint>
#include <utility>
#include <vector>

namespace brovin::avi {
namespace {

constexpr int kColours = 256;

void put16(QByteArray& to, std::uint32_t value) {
    to.append(static_cast<char>(value & 0xFFU)).append(static_cast<char>(value >> 8U & 0xFFU));
}
void put32(QByteArray& to, std::uint32_t value) {
    put16(to, value & 0xFFFFU);
    put16(to, value >> 16U);
}
void put32(QByteArray& to, std::initializer_list<int> values) {
    for (const int value : values)
        put32(to, static_cast<std::uint32_t>(value));
}

/// A chunk: four letters, the size, the content, and a byte that makes it even.
QByteArray chunk(const char* name, const QByteArray& content) {
    QByteArray made(name, 4);
    put32(made, {static_cast<int>(content.size())});
    made += content;
    if (content.size() % 2 != 0)
        made += '\0';
    return made;
}
QByteArray list(const char* container, const char* kind, const QByteArray& content) {
    return chunk(container, QByteArray(kind, 4) + content);
}

QRgb coarse(QRgb colour) {
    return colour & 0xFFF8F8F8U;
}

std::vector<QRgb> paletteOf(const QList<QImage>& frames) {
    QHash<QRgb, int> counts;
    for (const QImage& frame : frames)
        for (int y = 0; y < frame.height(); ++y)
            for (int x = 0; x < frame.width(); ++x)
                ++counts[coarse(frame.pixel(x, y))];
    std::vector<std::pair<int, QRgb>> ordered;
    for (auto colour = counts.begin(); colour != counts.end(); ++colour)
        ordered.emplace_back(-colour.value(), colour.key());
    std::sort(ordered.begin(), ordered.end()); // the same palette in every build
    ordered.resize(std::min<std::size_t>(ordered.size(), kColours));
    std::vector<QRgb> palette;
    palette.reserve(ordered.size());
    for (const auto& [count, colour] : ordered)
        palette.push_back(colour);
    return palette;
}

int distance(QRgb a, QRgb b) {
    const int red = qRed(a) - qRed(b);
    const int green = qGreen(a) - qGreen(b);
    const int blue = qBlue(a) - qBlue(b);
    return red * red + green * green + blue * blue;
}

/// Finds colours in a palette, each once.
class Indexer {
public:
    explicit Indexer(std::vector<QRgb> palette) : palette_(std::move(palette)) {}

    char indexOf(QRgb colour) {
        colour = coarse(colour);
        const auto known = known_.constFind(colour);
        if (known != known_.constEnd())
            return known.value();
        const auto nearest = std::min_element(palette_.begin(), palette_.end(), [colour](QRgb a, QRgb b) {
            return distance(a, colour) < distance(b, colour);
        });
        return known_[colour] = static_cast<char>(nearest - palette_.begin());
    }

private:
    std::vector<QRgb> palette_;
    QHash<QRgb, char> known_;
};

/// A row as pairs of a count and an index.
void encodeRow(QByteArray& to, const QByteArray& row) {
    constexpr qsizetype kLongest = 255;
    for (qsizetype x = 0; x < row.size();) {
        qsizetype end = x + 1;
        while (end < row.size() && row[end] == row[x] && end - x < kLongest)
            ++end;
        to.append(static_cast<char>(end - x)).append(row[x]);
        x = end;
    }
    to.append(2, '\0'); // the end of the row
}

/// Rows from the lowest to the uppermost, as bitmaps have them.
QByteArray encode(const QImage& frame, Indexer& indexer) {
    QByteArray encoded;
    for (int y = frame.height() - 1; y >= 0; --y) {
        QByteArray row;
        for (int x = 0; x < frame.width(); ++x)
            row += indexer.indexOf(frame.pixel(x, y));
        encodeRow(encoded, row);
    }
    return encoded + QByteArray("\0\1", 2);
}

QByteArray mainHeader(const QSize& size, int frames, int framesPerSecond, int largest) {
    constexpr int kHasIndex = 0x10;
    constexpr int kMicroseconds = 1'000'000;
    QByteArray header;
    put32(header, {kMicroseconds / framesPerSecond, largest * framesPerSecond, 0, kHasIndex, frames, 0, 1,
                   largest, size.width(), size.height(), 0, 0, 0, 0});
    return header;
}

QByteArray streamHeader(const QSize& size, int frames, int framesPerSecond, int largest) {
    QByteArray header("vidsMRLE");
    put32(header, {0, 0, 0, 1, framesPerSecond, 0, frames, largest, -1, 0, 0});
    put16(header, static_cast<std::uint32_t>(size.width()));
    put16(header, static_cast<std::uint32_t>(size.height()));
    return header;
}

QByteArray bitmapHeader(const QSize& size, const std::vector<QRgb>& palette) {
    constexpr int kHeaderBytes = 40;
    constexpr int kRunLength = 1;
    QByteArray header;
    put32(header, {kHeaderBytes, size.width(), size.height()});
    put16(header, 1);
    put16(header, 8);
    put32(header, {kRunLength, size.width() * size.height(), 0, 0, kColours, 0});
    for (std::size_t i = 0; i < kColours; ++i)
        put32(header, i < palette.size() ? palette[i] & 0xFFFFFFU : 0U);
    return header;
}

} // namespace

QByteArray aviFile(const QList<QImage>& frames, int framesPerSecond) {
    const std::vector<QRgb> palette = paletteOf(frames);
    Indexer indexer(palette);
    QByteArray movie;
    QByteArray index;
    int largest = 0;
    for (const QImage& frame : frames) {
        constexpr int kWholeFrame = 0x10;
        const QByteArray encoded = encode(frame, indexer);
        index += QByteArray("00dc", 4);
        put32(index, {kWholeFrame, static_cast<int>(movie.size()) + 4, static_cast<int>(encoded.size())});
        movie += chunk("00dc", encoded);
        largest = std::max(largest, static_cast<int>(encoded.size()));
    }
    const QSize size = frames.front().size();
    const int count = static_cast<int>(frames.size());
    const QByteArray stream = chunk("strh", streamHeader(size, count, framesPerSecond, largest)) +
                              chunk("strf", bitmapHeader(size, palette));
    const QByteArray headers =
        chunk("avih", mainHeader(size, count, framesPerSecond, largest)) + list("LIST", "strl", stream);
    return list("RIFF", "AVI ",
                list("LIST", "hdrl", headers) + list("LIST", "movi", movie) + chunk("idx1", index));
}

} // namespace brovin::avi
