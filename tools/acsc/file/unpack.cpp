#include "acsc/file/unpack.h"

#include "acsc/drawing/picture.h"
#include "acsc/file/settings_writer.h"
#include "character/indexed_image.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonObject>
#include <QTemporaryDir>

namespace brovin::acsc {
namespace {

QString pictureName(std::size_t index) {
    return QStringLiteral("pictures/%1.png").arg(index, 5, 10, QLatin1Char('0'));
}

QString soundName(std::size_t index) {
    return QStringLiteral("%1").arg(index, 4, 10, QLatin1Char('0'));
}

QJsonObject placed(std::size_t image, int x, int y) {
    return {{QStringLiteral("png"), pictureName(image)}, {QStringLiteral("x"), x}, {QStringLiteral("y"), y}};
}

QByteArray bytesOf(const character::SharedBytes& bytes) {
    const auto view = bytes.view();
    return {reinterpret_cast<const char*>(view.data()), static_cast<qsizetype>(view.size())};
}

/// The pixels of an image; what is damaged or empty becomes one pixel of nothing.
Picture pictureOf(const character::EncodedImage& image, const character::CharacterData& data) {
    const auto decoded = character::decodeImage(image);
    if (!decoded)
        return {1, 1, {0}};
    Picture picture{decoded->width, decoded->height, {}};
    for (const std::uint8_t entry : decoded->pixels) {
        const bool shown = entry != data.transparentIndex && entry < data.palette.size();
        const character::Colour colour = shown ? data.palette[entry] : character::Colour();
        const auto rgb = std::uint32_t{colour.red} << 16U | std::uint32_t{colour.green} << 8U | colour.blue;
        picture.pixels.push_back(shown ? 0xFF000000U | rgb : 0U);
    }
    return picture;
}

/// Writes one file after the other into a folder.
class Unpacking {
public:
    Unpacking(const character::CharacterData& data, const QDir& folder, Problems& problems)
        : data_(data), folder_(folder), problems_(problems) {}

    void run() {
        for (const char* name : {"pictures", "sounds", "animations", "icon"})
            folder_.mkpath(QString::fromLatin1(name));
        for (std::size_t i = 0; i < data_.images.size(); ++i)
            if (!toImage(pictureOf(data_.images[i], data_)).save(folder_.filePath(pictureName(i)), "PNG"))
                problems_.add(pictureName(i), QStringLiteral("cannot be written"));
        for (std::size_t i = 0; i < data_.sounds.size(); ++i)
            writeSound(i);
        // A file each, since their order is that of the files.
        for (std::size_t i = 0; i < data_.animations.size(); ++i)
            write(QStringLiteral("animations/%1.json").arg(i, 4, 10, QLatin1Char('0')),
                  animationText(data_.animations[i]).toUtf8());
        if (data_.trayIcon) {
            write(QString::fromLatin1(kIconMask), bytesOf(data_.trayIcon->mask));
            write(QString::fromLatin1(kIconPicture), bytesOf(data_.trayIcon->picture));
        }
        write(QStringLiteral("character.json"), settingsText(data_).toUtf8());
    }

private:
    void write(const QString& name, const QByteArray& bytes) {
        QFile file(folder_.filePath(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.flush())
            problems_.add(name, QStringLiteral("cannot be written (%1)").arg(file.errorString()));
    }

    void writeSound(std::size_t index) {
        const character::SharedBytes& wave = data_.sounds[index].wave;
        if (!wave.view().empty())
            write(QStringLiteral("sounds/%1.wav").arg(soundName(index)), bytesOf(wave));
    }

    QString animationText(const character::Animation& animation) const {
        QJsonArray frames;
        for (const character::Frame& frame : animation.frames)
            frames.append(frameOf(frame));
        QString returns = QStringLiteral("none");
        if (animation.transition == character::Transition::ExitBranches)
            returns = QStringLiteral("exit");
        else if (animation.returnAnimation)
            returns = QString::fromStdString(data_.animations[*animation.returnAnimation].name);
        JsonMembers file;
        file.add(QString::fromStdString(animation.name), QJsonObject{{QStringLiteral("frames"), frames},
                                                                     {QStringLiteral("return"), returns},
                                                                     {QStringLiteral("smoothExits"), false}});
        return file.text() + QLatin1Char('\n');
    }

    QJsonObject frameOf(const character::Frame& frame) const {
        QJsonObject object{{QStringLiteral("hundredths"), frame.duration.count()}};
        QJsonArray pictures;
        for (const character::FrameImage& image : frame.images)
            pictures.append(placed(image.image, image.x, image.y));
        QJsonArray branches;
        for (const character::Branch& branch : frame.branches)
            branches.append(QJsonObject{{QStringLiteral("to"), branch.frame},
                                        {QStringLiteral("percent"), branch.percent}});
        QJsonArray mouths;
        for (const character::MouthOverlay& overlay : frame.mouths) {
            QJsonObject mouth = placed(overlay.image, overlay.x, overlay.y);
            mouth[QStringLiteral("mouth")] = static_cast<int>(overlay.mouth);
            mouth[QStringLiteral("replaces")] = overlay.replacesTopImage;
            mouths.append(mouth);
        }
        const std::pair<const char*, QJsonArray> lists[] = {
            {"pictures", pictures}, {"branches", branches}, {"mouths", mouths}};
        for (const auto& [key, list] : lists)
            if (!list.isEmpty())
                object[QString::fromLatin1(key)] = list;
        if (frame.exitFrame)
            object[QStringLiteral("exit")] = *frame.exitFrame;
        if (frame.sound && !data_.sounds[*frame.sound].wave.empty())
            object[QStringLiteral("sound")] = soundName(*frame.sound);
        return object;
    }

    const character::CharacterData& data_;
    QDir folder_;
    Problems& problems_;
};

} // namespace

void unpackCharacter(const character::CharacterData& data, const QString& folder, Problems& problems) {
    const QFileInfo target(QDir::cleanPath(folder));
    if (target.exists() && !QDir(target.filePath()).isEmpty()) {
        problems.add(folder, QStringLiteral("is there already and not empty"));
        return;
    }
    // Beside the target, so that the finished folder only changes its name.
    const QTemporaryDir scratch(target.absolutePath() + QStringLiteral("/acsc-XXXXXX"));
    const QString content = scratch.filePath(QStringLiteral("content"));
    if (!scratch.isValid() || !QDir().mkpath(content)) {
        problems.add(folder, QStringLiteral("cannot be written (%1)").arg(scratch.errorString()));
        return;
    }
    Unpacking(data, QDir(content), problems).run();
    if (!problems.none())
        return;
    QDir().rmdir(target.absoluteFilePath());
    if (!QDir().rename(content, target.absoluteFilePath()))
        problems.add(folder, QStringLiteral("cannot be written"));
}

} // namespace brovin::acsc
