#include "stage/stage_world.h"

#include <gtest/gtest.h>

namespace brovin::character {
namespace {

constexpr Pointer kLeftAt(int x, int y) {
    return {.button = 1, .shift = 0, .at = {x, y}};
}

TEST(User, clicksWithoutDisturbingRequests) {
    ShownWorld world;
    const Asked search = world.stage->play("Search");
    world.pass(Milliseconds{50});
    world.stage->click({.button = 2, .shift = 3, .at = {7, 8}});
    world.stage->doubleClick(kLeftAt(1, 2));
    EXPECT_EQ((Lines{"50 click 2 3 7,8", "50 double click 1 0 1,2"}), world.settle());
    EXPECT_EQ("in progress", outcomeOf(*search));
}

TEST(User, dragsTheCharacterByWhereItWasSeized) {
    ShownWorld world;
    world.stage->beginDrag(kLeftAt(30, 40));
    world.stage->dragTo({130, 240});
    EXPECT_EQ((Place{100, 200}), world.surface.place);
    world.stage->setPlace({0, 0}, MoveCause::Program);
    EXPECT_EQ((Place{100, 200}), world.stage->place()) << "the user holds it";
    world.stage->endDrag(kLeftAt(140, 250));
    EXPECT_EQ((Lines{"drag start 1 0 30,40", "move 110,210 1", "drag complete 1 0 140,250"}),
              untimed(world.settle()));
    EXPECT_EQ(MoveCause::User, world.stage->moveCause());
    world.stage->dragTo({0, 0});
    world.stage->endDrag(kLeftAt(0, 0));
    EXPECT_TRUE(world.settle().empty()) << "nothing is held any more";
}

TEST(User, keepsTheCharacterFromMovingWhileHoldingIt) {
    ShownWorld world;
    const RequestHandle gliding = world.stage->moveTo({500, 0}, Milliseconds{1'000});
    world.pass(Milliseconds{600});
    world.stage->beginDrag(kLeftAt(0, 0));
    const RequestHandle later = world.stage->moveTo({0, 500}, Milliseconds{1'000});
    const Asked wave = world.stage->play("Wave");
    world.pass(Milliseconds{1'000});
    EXPECT_EQ("failed 80042010", outcomeOf(gliding));
    EXPECT_EQ("failed 80042010", outcomeOf(later));
    EXPECT_EQ("complete", outcomeOf(*wave)) << "other requests go on";
}

TEST(User, dropsACharacterThatHidesMeanwhile) {
    ShownWorld world;
    world.stage->beginDrag(kLeftAt(10, 10));
    world.stage->hide(Manner::Fast);
    world.settle();
    world.stage->endDrag(kLeftAt(90, 90));
    EXPECT_TRUE(world.settle().empty());
    EXPECT_EQ((Place{0, 0}), world.stage->place());
    world.stage->beginDrag(kLeftAt(10, 10));
    EXPECT_TRUE(world.settle().empty()) << "what is hidden cannot be seized";
}

TEST(User, clicksAFinishedBalloonAway) {
    TestCharacter character = usualCharacter();
    character.data.balloon->autoHide = false;
    ShownWorld world(character);
    ASSERT_TRUE(world.stage->speak("Hello"));
    world.settle();
    world.stage->click(kLeftAt(1, 1));
    EXPECT_EQ((Lines{"0 click 1 0 1,1"}), world.settle()) << "it is still speaking";
    world.voice.end();
    world.pass(std::chrono::hours{1});
    world.logsEvents = false;
    world.stage->click(kLeftAt(1, 1));
    EXPECT_EQ((Lines{"balloon gone"}), untimed(world.settle()));
    world.stage->closeBalloon();
    EXPECT_TRUE(world.settle().empty()) << "it is closed";
}

} // namespace
} // namespace brovin::character
