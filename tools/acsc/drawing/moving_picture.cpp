#include "acsc/drawing/moving_picture.h"

#include "character/bitmap.h"

#include <QBuffer>
#include <QImage>
#include <QSaveFile>

#include <algorithm>
#include <array>
#include <set>

namespace brovin::acsc {
namespace {

constexpr std::size_t kMostFrames = 500;

const character::Animation* findAnimation(const character::CharacterData& data, const QString& name) {
    const auto found = std::find_if(data.animations.begin(), data.animations.end(), [&](const auto& one) {
        return QString::fromStdString(one.name).compare(name, Qt::CaseInsensitive) == 0;
    });
    return found == data.animations.end() ? nullptr : &*found;
}

/// Where a frame leads by the likeliest of its ways.
std::size_t likeliest(const character::Animation& animation, std::size_t frame) {
    int left = 100;
    int best = 0;
    std::size_t to = frame + 1;
    for (const character::Branch& branch : animation.frames[frame].branches) {
        left -= branch.percent;
        if (branch.percent > best) {
            best = branch.percent;
            to = branch.frame;
        }
    }
    return left > best ? frame + 1 : to;
}

/// The frames that are shown, up to the end or to one that was there before.
std::vector<std::size_t> played(const character::Animation& animation) {
    std::vector<std::size_t> frames;
    std::set<std::size_t> been;
    for (std::size_t at = 0; at < animation.frames.size() && been.insert(at).second;
         at = likeliest(animation, at))
        if (animation.frames[at].duration.count() > 0 && frames.size() < kMostFrames)
            frames.push_back(at);
    return frames;
}

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
    QImage image(bitmap.width, bitmap.height, QImage::Format_ARGB32);
    std::size_t i = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            image.setPixel(x, y, bitmap.pixels[i++]);
    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return png;
}

/// As in the extension of PNG by animation: a header, and before each frame how long it stays.
class MovingPng {
public:
    void add(const character::Bitmap& bitmap, int hundredths) {
        const QByteArray png = pngOf(bitmap);
        if (frames_ == 0)
            header_ = chunksOf(png, "IHDR");
        const QByteArray pixels = chunksOf(png, "IDAT");
        QByteArray control = bigEndian(sequence_++) + header_.left(8) + bigEndian(0) + bigEndian(0);
        control +=
            bigEndian(static_cast<quint32>(std::min(hundredths, 65'535))).mid(2) + bigEndian(100).mid(2);
        control += QByteArray(2, '\0'); // replaces all, and stays
        body_ += chunk("fcTL", control);
        body_ += frames_++ == 0 ? chunk("IDAT", pixels) : chunk("fdAT", bigEndian(sequence_++) + pixels);
    }
    [[nodiscard]] QByteArray file() const {
        return QByteArray("\x89PNG\r\n\x1A\n", kSignature) + chunk("IHDR", header_) +
               chunk("acTL", bigEndian(frames_) + bigEndian(0)) + body_ + chunk("IEND", {});
    }

private:
    QByteArray header_;
    QByteArray body_;
    quint32 frames_ = 0;
    quint32 sequence_ = 0;
};

} // namespace

void exportAnimation(const character::CharacterData& data, const QString& animation, const QString& path,
                     Problems& problems) {
    const character::Animation* const found = findAnimation(data, animation);
    const std::vector<std::size_t> frames = found != nullptr ? played(*found) : std::vector<std::size_t>();
    if (frames.empty()) {
        problems.add(animation, QStringLiteral("there is no animation of this name, or it shows nothing"));
        return;
    }
    character::ImageStore images(data.images);
    character::FramePainter painter(data, images);
    character::Bitmap canvas;
    MovingPng picture;
    for (const std::size_t frame : frames) {
        painter.paint(found->frames[frame], nullptr, canvas);
        picture.add(canvas, found->frames[frame].duration.count());
    }
    QSaveFile file(path);
    const QByteArray bytes = picture.file();
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.commit())
        problems.add(path, QStringLiteral("cannot be written (%1)").arg(file.errorString()));
}

} // namespace brovin::acsc
