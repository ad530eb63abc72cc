#include "acsc/drawing/sheet.h"

#include "acsc/drawing/film.h"

#include <QFontDatabase>
#include <QImage>
#include <QPainter>
#include <QProcess>
#include <QSaveFile>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <algorithm>

namespace brovin::acsc {
namespace {

constexpr int kCheck = 8;  // pixels, the side of a square of the checker
constexpr int kTitle = 14; // the height of a row's title
constexpr int kGap = 2;
constexpr int kMostColumns = 16;

QImage checker(QSize size) {
    QImage image(size, QImage::Format_ARGB32);
    for (int y = 0; y < size.height(); ++y)
        for (int x = 0; x < size.width(); ++x)
            image.setPixel(x, y, (x / kCheck + y / kCheck) % 2 == 0 ? 0xFF707070U : 0xFF7C7C7CU);
    return image;
}

QString titleOf(const AnimationSource& animation) {
    int hundredths = 0;
    for (const FrameSource& frame : animation.frames)
        hundredths += frame.hundredths;
    return QStringLiteral("%1: %2 frames, %3 s")
        .arg(animation.name)
        .arg(animation.length())
        .arg(hundredths / 100.0);
}

/// Frames are numbered from 0, as the sources do.
bool saveSeries(const std::vector<QImage>& frames, const QString& pattern, Problems& problems) {
    for (std::size_t i = 0; i < frames.size() && problems.none(); ++i)
        savePicture(frames[i], QString::asprintf(pattern.toUtf8().constData(), static_cast<int>(i)),
                    problems);
    return problems.none();
}

void encode(const std::vector<QImage>& frames, int hundredths, const QString& path, Problems& problems) {
    const QTemporaryDir folder;
    const QString program = QStandardPaths::findExecutable(QStringLiteral("ffmpeg"));
    if (program.isEmpty()) {
        problems.add(path,
                     QStringLiteral("the command ffmpeg is missing; NAME-%03d.png gives single pictures"));
        return;
    }
    if (!saveSeries(frames, folder.filePath(QStringLiteral("%05d.png")), problems))
        return;
    QProcess process;
    process.start(program,
                  {QStringLiteral("-loglevel"), QStringLiteral("error"), QStringLiteral("-y"),
                   QStringLiteral("-framerate"), QStringLiteral("100/%1").arg(std::max(hundredths, 1)),
                   QStringLiteral("-i"), folder.filePath(QStringLiteral("%05d.png")),
                   QStringLiteral("-filter_complex"),
                   QStringLiteral("split[a][b];[a]palettegen[p];[b][p]paletteuse=dither=none"), path});
    process.waitForFinished(120000);
    if (process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0)
        problems.add(path,
                     QStringLiteral("ffmpeg failed: ") + QString::fromUtf8(process.readAllStandardError()));
}

} // namespace

std::vector<const AnimationSource*> chosenAnimations(const CharacterSource& source, const QStringList& names,
                                                     Problems& problems) {
    std::vector<const AnimationSource*> result;
    for (const AnimationSource& animation : source.animations)
        if (names.isEmpty() || names.contains(animation.name, Qt::CaseInsensitive))
            result.push_back(&animation);
    for (const QString& name : names)
        if (std::none_of(result.begin(), result.end(), [&](const AnimationSource* animation) {
                return animation->name.compare(name, Qt::CaseInsensitive) == 0;
            }))
            problems.add(name, QStringLiteral("there is no animation of this name"));
    return result;
}

void savePicture(const QImage& image, const QString& path, Problems& problems) {
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || !image.save(&file, "PNG") || !file.commit())
        problems.add(path, QStringLiteral("cannot be written (%1)").arg(file.errorString()));
}

void writeSheet(const CharacterSource& source, const QString& path, const QStringList& animations,
                Problems& problems) {
    const auto rows = chosenAnimations(source, animations, problems);
    int columns = 1;
    int lines = 0;
    for (const AnimationSource* animation : rows) {
        columns = std::max(columns, std::min(animation->length(), kMostColumns));
        lines += (animation->length() + kMostColumns - 1) / kMostColumns;
    }
    const QSize cell = source.size + QSize(kGap, kGap);
    QImage sheet(columns * cell.width(), lines * cell.height() + static_cast<int>(rows.size()) * kTitle,
                 QImage::Format_ARGB32);
    if (!problems.none() || sheet.isNull()) {
        problems.add(path, QStringLiteral("no sheet could be made"));
        return;
    }
    sheet.fill(0xFF303030U);
    QPainter painter(&sheet);
    painter.setPen(Qt::white);
    QFont font = painter.font();
    font.setPixelSize(11);
    painter.setFont(font);
    const QImage background = checker(source.size);
    Camera camera(source, problems);
    int top = 0;
    for (const AnimationSource* animation : rows) {
        const FilmedAnimation filmed = camera.film(*animation);
        painter.drawText(4, top + kTitle - 3, titleOf(*animation));
        top += kTitle;
        for (int frame = 0; frame < animation->length(); ++frame) {
            const QPoint place(frame % kMostColumns * cell.width(),
                               top + frame / kMostColumns * cell.height());
            painter.drawImage(place, background);
            painter.drawImage(place, toImage(camera.whole(filmed, frame)));
        }
        top += (animation->length() + kMostColumns - 1) / kMostColumns * cell.height();
    }
    painter.end();
    savePicture(sheet, path, problems);
}

void writeFilm(const CharacterSource& source, const QString& animation, const QString& path,
               Problems& problems) {
    const auto found = chosenAnimations(source, {animation}, problems);
    if (!problems.none())
        return;
    Camera camera(source, problems);
    const FilmedAnimation filmed = camera.film(*found.front());
    std::vector<QImage> frames;
    for (int frame = 0; frame < found.front()->length(); ++frame) {
        QImage image = checker(source.size);
        QPainter(&image).drawImage(0, 0, toImage(camera.whole(filmed, frame)));
        frames.push_back(image);
    }
    if (path.contains(QLatin1Char('%')))
        saveSeries(frames, path, problems);
    else
        encode(frames, found.front()->frames.front().hundredths, path, problems);
}

} // namespace brovin::acsc
