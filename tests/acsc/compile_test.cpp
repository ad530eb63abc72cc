#include "acsc/command.h"
#include "acsc/dot.h"
#include "acsc/drawing/edges.h"
#include "acsc/drawing/loops.h"
#include "acsc/drawing/silhouettes.h"
#include "acsc/file/unpack.h"
#include "character/acs_writer.h"

#include <QDir>
#include <QFileInfo>

#include <gtest/gtest.h>

namespace brovin::acsc::tests {
namespace {

using character::Animation;
using character::Transition;

TEST(Compile, givesTheSameBytesAgainAndAfterUnpacking) {
    const DotFolder dot;
    const QString first = dot.path(QStringLiteral("first.acs"));
    const QString second = dot.path(QStringLiteral("second.acs"));
    const QString third = dot.path(QStringLiteral("third.acs"));
    const QString sources = dot.path(QStringLiteral("unpacked"));
    ASSERT_EQ(0, run({dot.path(), QStringLiteral("-o"), first}));
    ASSERT_EQ(0, run({dot.path(), QStringLiteral("-o"), second}));
    ASSERT_EQ(0, run({QStringLiteral("--unpack"), first, sources}));
    ASSERT_EQ(0, run({sources, QStringLiteral("-o"), third}));
    EXPECT_FALSE(contentOf(first).isEmpty());
    EXPECT_EQ(contentOf(first), contentOf(second));
    EXPECT_EQ(contentOf(first), contentOf(third));
    EXPECT_EQ(1, run({QStringLiteral("--unpack"), first, sources})) << "the folder is not empty";
}

/// Taken apart and compiled again.
std::vector<std::uint8_t> throughTheSources(const character::CharacterData& data) {
    const QTemporaryDir folder;
    Problems problems;
    unpackCharacter(data, folder.filePath(QStringLiteral("sources")), problems);
    const CharacterSource source = readCharacterSource(folder.filePath(QStringLiteral("sources")), problems);
    const character::CharacterData again = compileCharacter(source, problems);
    EXPECT_EQ(QString(), problems.list().join(QLatin1Char('\n')));
    return *character::writeCharacter(again);
}

TEST(Compile, keepsWhatOnlySomeFilesHave) {
    character::CharacterData data = DotFolder().compile();
    data.trayIcon = {character::SharedBytes(std::vector<std::uint8_t>(40, 1)),
                     character::SharedBytes(std::vector<std::uint8_t>(99, 2))};
    data.info[1].language = 0;
    EXPECT_EQ(*character::writeCharacter(data), throughTheSources(data));
    data.animations.clear();
    data.states.clear();
    data.images.clear();
    data.sounds.clear();
    EXPECT_EQ(*character::writeCharacter(data), throughTheSources(data)) << "no animations at all";
    DotFolder coarse;
    coarse.replace(QStringLiteral("character.json"), QStringLiteral("\"size\""),
                   QStringLiteral("\"palette\": {\"entries\": [\"#000000\", \"#ff00ff\", \"#ffffff\"], "
                                  "\"transparent\": 1}, \"size\""));
    data = coarse.compile();
    EXPECT_EQ(*character::writeCharacter(data), throughTheSources(data)) << "pictures that become equal";
}

TEST(Example, compilesUnderItsOwnNameAndCanBeExported) {
    const QTemporaryDir folder;
    const QString sources = folder.filePath(QStringLiteral("Pip \"the\" Dot"));
    const QString file = folder.filePath(QStringLiteral("pip.acs"));
    const QString picture = folder.filePath(QStringLiteral("hop.png"));
    ASSERT_EQ(0, run({QStringLiteral("--new"), sources}));
    EXPECT_EQ(1, run({QStringLiteral("--new"), sources})) << "it is there already";
    ASSERT_EQ(0, run({sources, QStringLiteral("-o"), file}));
    EXPECT_TRUE(contentOf(file).contains(QByteArray("P\0i\0p\0 \0\"\0", 10)));
    ASSERT_EQ(0, run({QStringLiteral("--export"), file, QStringLiteral("hop"), picture}));
    const QByteArray png = contentOf(picture);
    EXPECT_EQ(QSize(32, 32), QImage(picture).size());
    EXPECT_EQ(9, png.count("fcTL")) << "in and once round";
    EXPECT_EQ(8, png.count("fdAT"));
    EXPECT_EQ(1, run({QStringLiteral("--export"), file, QStringLiteral("Nothing"), picture}));
    EXPECT_EQ(
        1, run({QStringLiteral("--export"), file, QStringLiteral("Hop"), picture + QStringLiteral(".gif")}));

    const QString sheet = folder.filePath(QStringLiteral("rest.png"));
    ASSERT_EQ(0, run({QStringLiteral("--rest"), file, sheet, picture}));
    const auto shown = contentOf(picture).count("fcTL"); // it blinks a few times, three pictures each
    EXPECT_TRUE(shown >= 10 && shown <= 40) << shown;
    EXPECT_EQ(QSize(16 * 34, (static_cast<int>(shown) + 15) / 16 * 44), QImage(sheet).size());
    EXPECT_EQ(1, run({QStringLiteral("--rest"), file, sheet, picture, QStringLiteral("0")}));
}

TEST(Compile, leavesTheOldFileWhenTheSourceIsBad) {
    DotFolder dot;
    const QString file = dot.path(QStringLiteral("dot.acs"));
    ASSERT_EQ(0, run({dot.path(), QStringLiteral("-o"), file}));
    const QByteArray before = contentOf(file);
    dot.replace(QStringLiteral("character.json"), QStringLiteral("m4"), QStringLiteral("m9"));
    EXPECT_EQ(1, run({dot.path(), QStringLiteral("-o"), file}));
    EXPECT_EQ(before, contentOf(file));
    EXPECT_EQ(2, run({dot.path()}));
}

TEST(Compile, keepsTheOrderOfTheFiles) {
    const character::CharacterData data = DotFolder().compile();
    std::vector<std::string> names;
    for (const Animation& one : data.animations)
        names.push_back(one.name);
    EXPECT_EQ((std::vector<std::string>{"Show", "RestPose", "Wave", "Blink", "Hop", "Hide"}), names);
    ASSERT_EQ(2U, data.info.size());
    EXPECT_EQ("Punkt", data.info[1].name);
    EXPECT_EQ(0x0407, data.info[1].language);
    ASSERT_EQ(4U, data.states.size());
    EXPECT_EQ(std::vector<std::uint32_t>{1}, data.states[1].animations);
}

TEST(Compile, letsWhatHoldsStandOnItsLastPictureAndSpeakThere) {
    const character::CharacterData data = DotFolder().compile();
    const Animation& wave = animation(data, "Wave");
    ASSERT_EQ(17U, wave.frames.size());
    EXPECT_EQ(Transition::ExitBranches, wave.transition);
    EXPECT_EQ((std::vector<character::Branch>{{15, 100}}), wave.frames[7].branches)
        << "over to where it stands";
    EXPECT_EQ(7U, wave.frames[15].mouths.size());
    EXPECT_TRUE(wave.frames[16].images.empty()) << "the end point";
    EXPECT_EQ(0, wave.frames[16].duration.count());
    EXPECT_TRUE(wave.frames[2].sound.has_value());
    const Animation& hop = animation(data, "Hop");
    EXPECT_EQ((std::vector<character::Branch>{{3, 100}}), hop.frames[8].branches) << "round and round";
}

TEST(Compile, leadsFromEveryFrameBackToNeutral) {
    const character::CharacterData data = DotFolder().compile();
    const character::Bitmap neutral = painted(data, animation(data, "RestPose").frames[0]);
    for (const Animation& one : data.animations)
        for (std::size_t begin = 0; begin < one.frames.size() && one.name != "Hide"; ++begin) {
            std::size_t at = begin;
            std::size_t lastShown = begin;
            std::size_t steps = 0;
            while (at < one.frames.size() && steps++ <= one.frames.size()) {
                lastShown = one.frames[at].images.empty() ? lastShown : at;
                at = one.frames[at].exitFrame.value_or(static_cast<std::uint16_t>(at + 1));
            }
            EXPECT_LE(steps, one.frames.size()) << one.name << " leads round in a circle from " << begin;
            if (!one.frames[begin].images.empty()) {
                EXPECT_EQ(neutral, painted(data, one.frames[lastShown])) << one.name << " from " << begin;
            }
        }
}

TEST(Compile, takesTheAuthorsWayBackAndWarnsAboutWhatNobodySees) {
    DotFolder dot;
    const character::CharacterData data = dot.compile();
    const Animation& wave = animation(data, "Wave");
    std::size_t shown = 0;
    for (std::size_t at = 15; at < wave.frames.size() - 1; ++shown)
        at = wave.frames[at].exitFrame.value_or(static_cast<std::uint16_t>(at + 1));
    EXPECT_EQ(8U, shown) << "from where it stands, frame by frame, and not back through the way in";

    dot.replace(QStringLiteral("animations/all.json"), QStringLiteral("\"speaks\": true,\n"),
                QStringLiteral("\"exits\": [{\"at\": 8, \"to\": 13}], \"speaks\": true,\n"));
    Problems problems;
    const CharacterSource source = dot.read(problems);
    (void)compileCharacter(source, problems);
    EXPECT_TRUE(problems.none());
    EXPECT_EQ(QStringList{QStringLiteral("animations/all.json, Wave: nothing leads to frame 9, 10, 11, 12")},
              problems.warnings());
}

TEST(Check, failsAboveItsLimitOnly) {
    const DotFolder dot;
    EXPECT_EQ(0, run({QStringLiteral("--check"), dot.path(), QStringLiteral("3")}));
    EXPECT_EQ(1, run({QStringLiteral("--check"), dot.path(), QStringLiteral("0.5")}));
}

TEST(Edges, areToldWithAnimationSideAndFrames) {
    DotFolder dot;
    dot.replace(QStringLiteral("animations/all.json"), QStringLiteral("\"y\": -2"),
                QStringLiteral("\"y\": -6"));
    Problems problems;
    const CharacterSource source = dot.read(problems);
    EXPECT_EQ(QStringList{QStringLiteral("Show: top in frames 2")}, touchedEdges(source, problems));
}

TEST(Loops, thatJumpWhereTheyCloseAreTold) {
    DotFolder dot;
    const auto seams = loopSeams(dot.compile());
    ASSERT_EQ(1U, seams.size());
    EXPECT_LE(seams[0].seam, seams[0].largest);
    dot.replace(QStringLiteral("animations/all.json"), QStringLiteral("{\"at\": 9, \"y\": -1}"),
                QStringLiteral("{\"at\": 8, \"y\": -3}"));
    const LoopSeam jump = loopSeams(dot.compile()).at(0);
    EXPECT_EQ(QStringLiteral("Hop"), jump.animation);
    EXPECT_GT(jump.seam, jump.largest) << "two pixels down at once, where it went up one by one";
}

TEST(Silhouettes, areComparedTheMostAlikeFirst) {
    const DotFolder dot;
    Problems problems;
    const auto pairs = writeSilhouettes(
        dot.read(problems), dot.path(QStringLiteral("sheet.png")),
        {QStringLiteral("RestPose"), QStringLiteral("Wave"), QStringLiteral("Blink")}, problems);
    ASSERT_EQ(3U, pairs.size());
    EXPECT_EQ(QStringLiteral("RestPose, Blink"), pairs[0].one + QStringLiteral(", ") + pairs[0].other);
    EXPECT_EQ(1.0, pairs[0].overlap) << "an eye that closes changes no outline";
    EXPECT_LT(pairs[2].overlap, 0.99) << "an arm that is raised does";
}

TEST(Sheet, hasARowForEachAnimationThatIsNamed) {
    const DotFolder dot;
    const QString sheet = dot.path(QStringLiteral("sheet.png"));
    ASSERT_EQ(0, run({QStringLiteral("--sheet"), dot.path(), sheet, QStringLiteral("Blink")}));
    EXPECT_EQ(6 * 34, QImage(sheet).width());
    EXPECT_EQ(1, run({QStringLiteral("--sheet"), dot.path(), sheet, QStringLiteral("Nobody")}));
    ASSERT_EQ(0, run({QStringLiteral("--silhouettes"), dot.path(), sheet, QStringLiteral("Wave")}));
    EXPECT_EQ(0xFF000000U, QImage(sheet).pixel(16, 16)) << "black on white";
    EXPECT_EQ(0xFFFFFFFFU, QImage(sheet).pixel(0, 0));
    const QString pictures = dot.path(QStringLiteral("film-%02d.png"));
    ASSERT_EQ(0, run({QStringLiteral("--film"), dot.path(), QStringLiteral("Blink"), pictures}));
    EXPECT_EQ(6, QDir(dot.path()).entryList({QStringLiteral("film-*.png")}).size());
}

} // namespace
} // namespace brovin::acsc::tests
