#include "acsc/drawing/moving_png.h"

#include <QBuffer>
#include <QSaveFile>

#include <algorithm>

namespace brovin::acsc {
namespace {

QByteArray bigEndian(quint32 value) {
    QByteArray bytes;
    for (const int shift : {24, 16, 8, 0})
        bytes.append(static_cast<char>(value >> static_cast<unsigned>(shift) & 0xFFU));
    return bytes;
}

/// CRC-32 as in ISO 3309, which PNG has behind each of its chunks.
quint32 checksum(const QByteArray& bytes) {
    quint32 sum = 0xFFFFFFFFU;
    for (const char byte : bytes) {
        sum ^= static_cast<quint8>(byte);
        for (int bit = 0; bit < 8; ++bit)
            sum = sum >> 1U ^ ((sum & 1U) != 0 ? 0xEDB88320U : 0U);
    }
    return ~sum;
}

QByteArray chunk(const QByteArray& type, const QByteArray& content) {
    return bigEndian(static_cast<quint32>(content.size())) + type + content +
           bigEndian(checksum(type + content));
}

constexpr int kSignature = 8;
constexpr int kAround = 12; // length, type and checksum of a chunk

/// What the chunks of a type hold, one behind the other.
QByteArray chunksOf(const QByteArray& png, const char* type) {
    QByteArray content;
    for (qsizetype at = kSignature; at + kAround <= png.size();) {
        quint32 size = 0;
        for (int i = 0; i < 4; ++i)
            size = size << 8U | static_cast<quint8>(png[at + i]);
        if (png.mid(at + 4, 4) == type)
            content += png.mid(at + kAround - 4, size);
        at += kAround + static_cast<qsizetype>(size);
    }
    return content;
}

/// All of one format, so that one header serves for all of them.
QByteArray pngOf(const character::Bitmap& bitmap) {
    const QImage image = imageOf(bitmap);
    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return png;
}

} // namespace

QImage imageOf(const character::Bitmap& bitmap) {
    return QImage(reinterpret_cast<const uchar*>(bitmap.pixels.data()), bitmap.width, bitmap.height,
                  QImage::Format_ARGB32)
        .copy();
}

void MovingPng::add(const character::Bitmap& bitmap, int hundredths) {
    const QByteArray png = pngOf(bitmap);
    if (pictures_ == 0)
        header_ = chunksOf(png, "IHDR");
    const QByteArray pixels = chunksOf(png, "IDAT");
    QByteArray control = bigEndian(sequence_++) + header_.left(8) + bigEndian(0) + bigEndian(0);
    control += bigEndian(static_cast<quint32>(std::min(hundredths, 65'535))).mid(2) + bigEndian(100).mid(2);
    control += QByteArray(2, '\0'); // replaces all, and stays
    body_ += chunk("fcTL", control);
    body_ += pictures_++ == 0 ? chunk("IDAT", pixels) : chunk("fdAT", bigEndian(sequence_++) + pixels);
}

void MovingPng::save(const QString& path, Problems& problems) const {
    const QByteArray bytes = QByteArray("\x89PNG\r\n\x1A\n", kSignature) + chunk("IHDR", header_) +
                             chunk("acTL", bigEndian(pictures_) + bigEndian(0)) + body_ + chunk("IEND", {});
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.commit())
        problems.add(path, QStringLiteral("cannot be written (%1)").arg(file.errorString()));
}

} // namespace brovin::acsc
