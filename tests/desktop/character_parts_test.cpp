#include "desktop/character/balloon_placement.h"
#include "desktop/character/character_folder.h"
#include "desktop/character/character_language.h"
#include "desktop/character/company.h"
#include "desktop/character/event_delivery.h"
#include "desktop/character/opaque_region.h"
#include "desktop/character/screens.h"
#include "desktop/character_world.h"

#include <random>

namespace brovin::desktop {
namespace {

using Names = std::vector<std::string>;

TEST(BalloonPlacement, findsRoomBesideTheFigure) {
    constexpr QRect kRoom(0, 0, 1000, 700);
    constexpr QSize kBubble(200, 60);
    const struct {
        const char* what;
        QRect figure;
        BalloonSide side;
        QRect bubble;
        QPoint tip;
    } kCases[] = {
        {"above", {400, 300, 100, 90}, BalloonSide::Above, {350, 226, 200, 60}, {449, 299}},
        {"just enough room above", {400, 74, 100, 90}, BalloonSide::Above, {350, 0, 200, 60}, {449, 73}},
        {"a pixel less", {400, 73, 100, 90}, BalloonSide::Right, {514, 73, 200, 60}, {500, 103}},
        {"more room to the left", {600, 20, 100, 90}, BalloonSide::Left, {386, 20, 200, 60}, {599, 50}},
        {"moved in at the left", {10, 300, 100, 90}, BalloonSide::Above, {0, 226, 200, 60}, {59, 299}},
        {"moved in at the right", {890, 600, 100, 90}, BalloonSide::Above, {800, 526, 200, 60}, {939, 599}},
        {"a corner", {0, 0, 100, 90}, BalloonSide::Right, {114, 0, 200, 60}, {100, 30}},
        {"only below", {0, 0, 1000, 90}, BalloonSide::Below, {400, 104, 200, 60}, {499, 90}},
        {"nowhere", {0, 0, 1000, 700}, BalloonSide::Above, {400, 0, 200, 60}, {499, 73}},
        {"off the screen", {-300, 900, 100, 90}, BalloonSide::Above, {0, 626, 200, 60}, {0, 699}},
    };
    for (const auto& [what, figure, side, bubble, tip] : kCases) {
        const BalloonPlace place = placeBalloon(kBubble, figure, kRoom, {});
        EXPECT_EQ(side, place.side) << what;
        EXPECT_EQ(bubble, place.bubble) << what;
        EXPECT_EQ(tip, place.tip) << what;
        EXPECT_TRUE(place.window.contains(bubble) && place.window.contains(tip)) << what;
        EXPECT_TRUE(kRoom.contains(place.window)) << what;
    }
}

TEST(BalloonPlacement, keepsOffWhatIsBeingWorkedWith) {
    constexpr QRect kRoom(0, 0, 1000, 700);
    const auto side = [&](const QRect& figure, const QRegion& work) {
        return placeBalloon({200, 60}, figure, kRoom, work).side;
    };
    EXPECT_EQ(BalloonSide::Right, side({400, 300, 100, 90}, QRect(300, 0, 300, 299))) << "work above";
    EXPECT_EQ(BalloonSide::Left, side({400, 300, 100, 90}, QRect(300, 0, 700, 700))) << "and to the right";
    EXPECT_EQ(BalloonSide::Above, side({400, 300, 100, 90}, kRoom)) << "all around";
}

TEST(BalloonPlacement, letsABubbleGrowWhereItsLinesBegin) {
    constexpr QRect kFull(100, 200, 200, 60);
    const struct {
        const char* what;
        BalloonSide side;
        QPoint tip;
        QRect before;
        Qt::LayoutDirection lines;
        QRect bubble;
    } kCases[] = {
        {"the first words", BalloonSide::Above, {200, 273}, {}, Qt::LeftToRight, {161, 240, 80, 20}},
        {"the next", BalloonSide::Above, {200, 273}, {61, 40, 60, 20}, Qt::LeftToRight, {161, 240, 80, 20}},
        {"to the left",
         BalloonSide::Above,
         {200, 273},
         {61, 40, 60, 20},
         Qt::RightToLeft,
         {141, 240, 80, 20}},
        {"no room left",
         BalloonSide::Above,
         {200, 273},
         {150, 40, 50, 20},
         Qt::LeftToRight,
         {200, 240, 80, 20}},
        {"the tip moves",
         BalloonSide::Below,
         {110, 186},
         {61, 0, 60, 20},
         Qt::LeftToRight,
         {110, 200, 80, 20}},
        {"beside the figure",
         BalloonSide::Right,
         {86, 230},
         {40, 10, 60, 20},
         Qt::LeftToRight,
         {100, 211, 80, 20}},
        {"and at its other side",
         BalloonSide::Left,
         {313, 230},
         {0, 0, 60, 20},
         Qt::LeftToRight,
         {220, 211, 80, 20}},
    };
    for (const auto& [what, side, tip, before, lines, bubble] : kCases)
        EXPECT_EQ(bubble, growingBubble({side, kFull, tip, {}}, {80, 20}, before, lines)) << what;
    EXPECT_EQ(kFull,
              growingBubble({BalloonSide::Above, kFull, {200, 273}, {}}, {300, 90}, {}, Qt::LeftToRight));
}

TEST(Footing, isOnTheScreenThatTheMiddleIsOnAndWaitsAtItsBorder) {
    // A fine screen to the left, which leaves a gap in the coordinates up to 1000; the character is half as
    // large on it.
    const QList<ScreenForCharacter> screens = {{{0, 0, 500, 500}, {100, 100}},
                                               {{1000, 0, 1000, 1000}, {200, 200}}};
    constexpr struct {
        qsizetype current;
        QPoint wanted;
        qsizetype screen;
        QPoint stands;
        const char* why;
    } kCases[] = {
        {0, {100, 100}, 0, {100, 100}, "where it is"},
        {0, {600, 100}, 0, {448, 100}, "in the gap it waits at the border"},
        {0, {910, 100}, 1, {910, 100}, "until its middle would be on the other one"},
        {1, {890, 100}, 1, {903, 100}, "and so on the way back"},
        {1, {440, 100}, 0, {440, 100}, "over to the fine one"},
        {1, {1500, 990}, 1, {1500, 898}, "no lower than by its middle"},
        {0, {1400, 600}, 1, {1400, 600}, "put there from elsewhere"},
    };
    for (const auto& [current, wanted, screen, stands, why] : kCases) {
        const Footing footing = footingAt(wanted, current, screens);
        EXPECT_EQ(screen, footing.screen) << why;
        EXPECT_EQ(stands, footing.place) << why;
        const Footing again = footingAt(footing.place, footing.screen, screens);
        EXPECT_EQ(footing.place, again.place) << "and stays: " << why;
    }
}

TEST(Company, isLeftInSightByAWindowThatComesUp) {
    constexpr QRect kRoom(0, 0, 1000, 700);
    const QRect figure(0, 550, 128, 128);
    const QRect withBalloon(0, 460, 220, 218);
    const struct {
        const char* what;
        QSize wanted;
        int least;
        QVector<QRect> company;
        QRect place;
    } kCases[] = {
        {"alone", {600, 500}, 400, {}, {200, 100, 600, 500}},
        {"no need to move", {500, 500}, 400, {withBalloon, figure}, {250, 100, 500, 500}},
        {"to its right", {700, 500}, 400, {withBalloon, figure}, {226, 100, 700, 500}},
        {"narrower", {900, 900}, 400, {withBalloon, figure}, {226, 0, 774, 700}},
        {"only the figure in sight", {900, 700}, 800, {withBalloon, figure}, {134, 0, 866, 700}},
        {"no room for both", {990, 700}, 900, {withBalloon, figure}, {5, 0, 990, 700}},
        {"to its left", {700, 700}, 400, {QRect(800, 500, 200, 150)}, {94, 0, 700, 700}},
        {"on another screen", {700, 700}, 400, {QRect(1200, 500, 200, 150)}, {150, 0, 700, 700}},
    };
    for (const auto& [what, wanted, least, company, place] : kCases)
        EXPECT_EQ(place, placeBeside(company, wanted, least, kRoom)) << what;
}

TEST(OpaqueRegion, isEveryPixelThatShowsAnything) {
    std::mt19937 random(1);
    for (const unsigned density : {0U, 1U, 5U, 9U, 10U}) {
        QImage picture(37, 23, QImage::Format_ARGB32_Premultiplied);
        for (int y = 0; y < picture.height(); ++y)
            for (int x = 0; x < picture.width(); ++x)
                picture.setPixel(x, y, random() % 10 < density ? 0x01000000U : 0);
        const QRegion region = opaqueRegion(picture);
        EXPECT_EQ(density == 0, region.isEmpty());
        for (int y = 0; y < picture.height(); ++y)
            for (int x = 0; x < picture.width(); ++x)
                ASSERT_EQ(qAlpha(picture.pixel(x, y)) != 0, region.contains(QPoint(x, y))) << x << ' ' << y;
    }
}

TEST(OpaqueRegion, isCoarserWhereItWouldBeTooMuch) {
    QImage picture(1023, 1021, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    for (int y = 0; y < picture.height(); ++y)
        for (int x = y % 2; x < picture.width() / 2; x += 2)
            picture.setPixel(x, y, 0xFF000000U);
    const QRegion region = opaqueRegion(picture);
    EXPECT_LE(region.rectCount(), 4096);
    EXPECT_TRUE(region.contains(QRect(0, 0, 500, 1021)));
    EXPECT_FALSE(region.intersects(QRect(530, 0, 493, 1021)));
    EXPECT_TRUE(picture.rect().contains(region.boundingRect()));
}

void put(const QString& path, const QByteArray& content) {
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(content);
}

TEST(CharacterFolder, prefersTheUsersFilesAndNeverLeavesItsOwn) {
    const QTemporaryDir scratch;
    put(scratch.filePath("own/peedy.ACS"), "own");
    put(scratch.filePath("own/notes.txt"), "");
    put(scratch.filePath("own/sub/inner.acs"), "");
    put(scratch.filePath("own/Åke.acs"), "ake");
    put(scratch.filePath("all/Peedy.acs"), "all");
    put(scratch.filePath("all/zoe.acs"), "zoe");
    put(scratch.filePath("all/Zoe.acs"), "Zoe");
    put(scratch.filePath("secret.acs"), "secret");
    QDir(scratch.path()).mkdir("own/folder.acs");
    CharacterFolder folder({scratch.filePath("own").toStdString(), scratch.filePath("all").toStdString(),
                            scratch.filePath("missing").toStdString()});
    EXPECT_EQ((Names{"peedy.ACS", "Zoe.acs", "Åke.acs"}), folder.files());
    const struct {
        std::string name;
        std::string content; ///< "": there is no such file
    } kCases[] = {{"PEEDY.acs", "own"},
                  {"Peedy.acs", "own"},
                  {"zoe.acs", "zoe"},
                  {"ZOE.acs", "Zoe"},
                  {"åke.ACS", "ake"},
                  {"", ""},
                  {"nobody.acs", ""},
                  {"folder.acs", ""},
                  {"../secret.acs", ""},
                  {"sub/inner.acs", ""},
                  {scratch.filePath("secret.acs").toStdString(), ""}};
    for (const auto& [name, content] : kCases) {
        const auto read = folder.read(name);
        EXPECT_EQ(content, read ? std::string(read->begin(), read->end()) : "") << name;
    }
}

TEST(CharacterLanguage, isKnownByItsPrimaryLanguage) {
    EXPECT_EQ("&Hide", hideCaption(0x0C09)) << "Australian English";
    EXPECT_EQ("&Ausblenden", hideCaption(0x0C07)) << "Austrian German";
    EXPECT_EQ("&Hide", hideCaption(0x0439)) << "not known";
    EXPECT_EQ(Qt::RightToLeft, writingDirection(0x040D));
    EXPECT_EQ(Qt::LeftToRight, writingDirection(0x0405));
}

class Service : public testing::Test {
protected:
    QTemporaryDir scratch;
    DesktopCharacterService service{{{scratch.path().toStdString()}, silentAudio, [] { return false; }}};
};

TEST_F(Service, saysNoToWhatItCannotLoad) {
    character::CharacterData data = tests::drawnCharacter();
    tests::writeCharacterFile(scratch.filePath("ring.acs"), data);
    tests::writeCharacterFile(scratch.filePath("twin.acs"), data);
    data.guid.first = 2;
    tests::writeCharacterFile(scratch.filePath("other.acs"), data);
    put(scratch.filePath("broken.acs"), "MZ, and no character");
    QFile huge(scratch.filePath("huge.acs"));
    ASSERT_TRUE(huge.open(QIODevice::WriteOnly) && huge.resize(qint64{65} << 20));

    EXPECT_TRUE(service.load("a", "ring.acs"));
    EXPECT_FALSE(service.load("a", "other.acs")) << "the id is in use";
    EXPECT_FALSE(service.load("b", "twin.acs")) << "the very same character";
    for (const char* const file : {"missing.acs", "broken.acs", "huge.acs"})
        EXPECT_FALSE(service.load("b", file)) << file;
    EXPECT_EQ(nullptr, service.character("b"));
    EXPECT_TRUE(service.load("b", "other.acs")) << "the id is still free";
    service.unload("nobody");
    service.unload("a");
    EXPECT_TRUE(service.load("c", "twin.acs"));
}

TEST_F(Service, knowsTheAnimationsOfACharacter) {
    tests::writeCharacterFile(scratch.filePath("ring.acs"), tests::drawnCharacter());
    ASSERT_TRUE(service.load("a", "ring.acs"));
    const platform::Character& ring = *service.character("a");
    EXPECT_EQ((Names{"Show", "Hide", "RestPose", "Jump"}), ring.requests.animationNames());
    EXPECT_TRUE(ring.requests.play("JUMP"));
    EXPECT_FALSE(ring.requests.play("Dance"));
    EXPECT_FALSE(ring.requests.play(""));
    EXPECT_FALSE(ring.requests.speak("Again: \\Lst\\"));
    EXPECT_EQ(120, ring.place.area().width);
    EXPECT_FALSE(ring.place.visible());
}

TEST(EventDelivery, tellsInOrderFromTheEventLoopAlone) {
    bool busy = true;
    std::vector<int> told;
    EventDelivery delivery([&busy] { return busy; });
    platform::CharacterEvents events;
    events.hide = [&](const std::string& /*id*/, int cause) {
        told.push_back(cause);
        if (cause == 3)
            delivery.add("a", character::event::Disappeared{character::VisibilityCause::UserHidByMenu});
    };
    delivery.setEvents(events);
    delivery.add("a", character::event::Disappeared{character::VisibilityCause::ProgramHid});
    delivery.add("b", character::event::Disappeared{character::VisibilityCause::UserHid});
    delivery.add("c", character::event::Disappeared{character::VisibilityCause::UserHid});
    delivery.forget("b");
    EXPECT_EQ(std::vector<int>{}, told);
    tests::letPass(100);
    EXPECT_EQ(std::vector<int>{}, told) << "the program is busy";
    busy = false;
    EXPECT_TRUE(tests::waitUntil([&told] { return told.size() == 3; }));
    EXPECT_EQ((std::vector<int>{3, 1, 7}), told);
}

} // namespace
} // namespace brovin::desktop
