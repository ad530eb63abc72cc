#include "desktop/widgets/movie.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace brovin::desktop {
namespace {

const QString kMovie = QStringLiteral(BROVIN_SHARE "/DOWNLOAD.AVI");

TEST(Movie, playsTheProgramsOwn) {
    const Movie movie = readMovie(kMovie);
    ASSERT_EQ(24, movie.frames.size());
    EXPECT_EQ(83, movie.interval.count());
    EXPECT_EQ(QSize(192, 128), movie.frames[0].size());
    EXPECT_EQ(qRgb(0xa8, 0xd0, 0xf0), movie.frames[0].pixel(4, 4) & 0xFFF8F8F8) << "sky above";
    EXPECT_EQ(qRgb(0x38, 0xa0, 0x88), movie.frames[0].pixel(4, 124) & 0xFFF8F8F8) << "grass below";
    EXPECT_NE(movie.frames[0], movie.frames[6]) << "it moves";
}

TEST(Movie, isNothingWhenTheFileIsBroken) {
    EXPECT_TRUE(readMovie("/nowhere/DOWNLOAD.AVI").frames.isEmpty());
    QFile whole(kMovie);
    ASSERT_TRUE(whole.open(QIODevice::ReadOnly));
    const QByteArray bytes = whole.readAll();
    const QTemporaryDir scratch;
    const auto read = [&scratch](const QByteArray& content) {
        QFile file(scratch.filePath("x.avi"));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
        file.close();
        return readMovie(file.fileName());
    };
    EXPECT_TRUE(read("").frames.isEmpty());
    EXPECT_TRUE(read("not a movie").frames.isEmpty());
    EXPECT_TRUE(read(bytes.left(300)).frames.isEmpty());
    EXPECT_LT(read(bytes.left(bytes.size() / 2)).frames.size(), 24);
    for (int at = 0; at < 400; at += 7) { // whatever comes of it, it comes to an end
        QByteArray damaged = bytes;
        damaged[at] = static_cast<char>(damaged[at] ^ 0x55);
        EXPECT_LE(read(damaged).frames.size(), 300);
    }
}

} // namespace
} // namespace brovin::desktop
