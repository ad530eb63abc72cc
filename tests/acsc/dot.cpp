#include "acsc/dot.h"

#include <QDir>
#include <QFile>
#include <QGuiApplication>

#include <algorithm>
#include <gtest/gtest.h>

namespace brovin::acsc::tests {

DotFolder::DotFolder() {
    const QDir from(QStringLiteral(BROVIN_DOT));
    for (const char* folder : {".", "animations", "sounds"}) {
        const QString name = QString::fromLatin1(folder);
        QDir(folder_.path()).mkpath(name);
        const QDir source(from.filePath(name));
        for (const QString& file : source.entryList(QDir::Files))
            QFile::copy(source.filePath(file), QDir(folder_.filePath(name)).filePath(file));
    }
}

QString DotFolder::path(const QString& name) const {
    return name.isEmpty() ? folder_.path() : folder_.filePath(name);
}

void DotFolder::replace(const QString& file, const QString& text, const QString& by) {
    QString content = QString::fromUtf8(contentOf(path(file)));
    const auto at = content.indexOf(text);
    ASSERT_GE(at, 0) << qPrintable(text);
    content.replace(at, text.size(), by);
    QFile out(path(file));
    ASSERT_TRUE(out.open(QIODevice::WriteOnly));
    out.write(content.toUtf8());
}

QString DotFolder::problems() const {
    Problems problems;
    const CharacterSource source = read(problems);
    if (problems.none())
        static_cast<void>(compileCharacter(source, problems));
    return problems.list().join(QLatin1Char('\n'));
}

character::CharacterData DotFolder::compile() const {
    Problems problems;
    const CharacterSource source = read(problems);
    character::CharacterData data = compileCharacter(source, problems);
    EXPECT_TRUE(problems.none()) << qPrintable(problems.list().join(QLatin1Char('\n')));
    return data;
}

const character::Animation& animation(const character::CharacterData& data, const char* name) {
    return *std::find_if(data.animations.begin(), data.animations.end(),
                         [=](const character::Animation& one) { return one.name == name; });
}

character::Bitmap painted(const character::CharacterData& data, const character::Frame& frame,
                          const character::MouthOverlay* mouth) {
    character::ImageStore images(data.images);
    character::FramePainter painter(data, images);
    character::Bitmap canvas;
    painter.paint(frame, mouth, canvas);
    return canvas;
}

QByteArray contentOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace brovin::acsc::tests

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
