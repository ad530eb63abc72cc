#include "stage/stage_world.h"

#include <gtest/gtest.h>

#include <functional>
#include <optional>
#include <string_view>

namespace brovin::character {
namespace {

constexpr Milliseconds kLong{2'000};

TEST(ShowAndHide, takeEffectOnlyWhereThereIsSomethingToChange) {
    StageWorld world;
    const RequestHandle hide = world.stage->hide(Manner::Animated);
    EXPECT_EQ((Lines{"0 start 1", "0 end 1"}), world.pass(kLong)) << "it is hidden already";
    EXPECT_EQ("complete", outcomeOf(hide));
    EXPECT_EQ(VisibilityCause::NeverShown, world.stage->visibilityCause());
    world.appear();
    EXPECT_EQ(VisibilityCause::ProgramShowed, world.stage->visibilityCause());
    const RequestHandle show = world.stage->show(Manner::Animated);
    EXPECT_EQ((Lines{"start 0", "end 0"}), untimed(world.settle())) << "it is shown already";
    world.stage->show(Manner::Animated);
    world.stage->stopAll(kStopShowAndHide);
    EXPECT_TRUE(world.settle().empty()) << "nor is there anything to cut";
}

TEST(ShowAndHide, canDoWithoutAnimation) {
    StageWorld world;
    world.stage->show(Manner::Fast);
    EXPECT_EQ((Lines{"0 frame RestPose0", "0 shown", "0 show 4"}), world.settle()) << "the neutral pose";
    ASSERT_TRUE(world.stage->play("Read"));
    world.pass(Milliseconds{500});
    world.stage->hide(Manner::Fast);
    EXPECT_EQ((Lines{"500 frame nothing", "500 gone", "500 hide 3"}), world.settle()) << "without a way back";
    world.stage->show(Manner::Animated);
    EXPECT_EQ((Lines{"500 shown", "500 frame Show0", "500 show 4"}), world.settle()) << "nor one later";
}

TEST(ShowAndHide, leadBackBeforeHidingAndForgetThePose) {
    QuietWorld world;
    ASSERT_TRUE(world.stage->play("Read"));
    world.stage->hide(Manner::Animated);
    world.stage->show(Manner::Animated);
    ASSERT_TRUE(world.stage->play("Wave"));
    EXPECT_EQ(
        (Lines{"frame Read0", "frame Read1", "frame ReadReturn0", "frame Hide0", "frame Hide1",
               "frame nothing", "gone", "shown", "frame Show0", "frame Show1", "frame Wave0", "frame Wave1"}),
        untimed(world.pass(kLong)));
}

TEST(ShowAndHide, leaveNothingToLeadBackFrom) {
    TestCharacter character;
    character.animation("Back", {{}}).animation("Show", {{}}).ledBackBy("Back").animation("Wave", {{}});
    StageWorld world(character);
    world.logsEvents = false;
    world.stage->show(Manner::Animated);
    ASSERT_TRUE(world.stage->play("Wave"));
    EXPECT_EQ((Lines{"shown", "frame Show0", "frame Wave0"}), untimed(world.pass(kLong)));
}

TEST(ShowAndHide, fallSilentWhenTheyAreCut) {
    TestCharacter character;
    character.animation("Show", {{.sound = 1}, {}}).animation("Hide", {{.sound = 2}, {}});
    StageWorld world(character);
    world.logsEvents = false;
    world.stage->show(Manner::Animated);
    world.settle();
    world.stage->stopAll(kStopShowAndHide);
    EXPECT_EQ((Lines{"sound off", "frame Show1"}), untimed(world.settle()));
    world.stage->hide(Manner::Animated);
    world.settle();
    world.stage->stopAll(kStopShowAndHide);
    EXPECT_EQ((Lines{"sound off", "frame nothing", "gone"}), untimed(world.settle()));
}

TEST(ShowAndHide, countFromTheMomentInWhichTheyAreInProgress) {
    StageWorld world;
    world.stage->show(Manner::Animated);
    EXPECT_TRUE(world.stage->visible()) << "its turn has come, before any time has passed";
    world.stage->hide(Manner::Animated);
    world.settle();
    EXPECT_TRUE(world.stage->visible());
    world.pass(kLong);
    EXPECT_FALSE(world.stage->visible());
    const Asked hello = world.stage->speak("hello");
    EXPECT_TRUE(hello);
    world.stage->show(Manner::Animated);
    EXPECT_FALSE(world.stage->visible()) << "it waits for its turn";
    EXPECT_TRUE(world.stage->busy());
}

TEST(ShowAndHide, workWithoutAnyAnimation) {
    StageWorld world(TestCharacter().animation("RestPose", {{}}));
    world.stage->show(Manner::Animated);
    EXPECT_EQ((Lines{"frame RestPose0", "shown", "show 4"}), untimed(world.settle()));
    world.stage->hide(Manner::Animated);
    EXPECT_EQ((Lines{"frame nothing", "gone", "hide 3"}), untimed(world.settle()));
}

TEST(ShowAndHide, pickOneOfTheStatesAnimationsAtRandom) {
    TestCharacter character;
    character.animation("Hop", {{}}).animation("Fade", {{}}).state("SHOWING", {"Hop", "Fade"});
    for (const auto& [draw, frame] : {std::pair{0.49, "frame Hop0"}, {0.5, "frame Fade0"}}) {
        StageWorld world(character);
        world.chance.draws = {draw};
        world.stage->show(Manner::Animated);
        EXPECT_EQ((Lines{"shown", frame, "show 4"}), untimed(world.settle()));
    }
}

TEST(StandingStill, changesPosesAndNothingMoves) {
    TestCharacter character = usualCharacter();
    character.animation("Bow", {{}, {.ms = 300, .sound = 4}, {}, {}}).state("IdlingLevel1", {"Blink"});
    QuietWorld world(character);
    world.surface.logsPlaces = true;
    world.stage->setStill(true);
    const struct {
        std::function<void(Stage&)> ask;
        Lines seen;
        std::string_view why;
    } steps[] = {
        {[](Stage& s) { EXPECT_TRUE(s.play("Bow")); },
         {"0 frame Bow1", "0 sound 4", "600 frame Bow3"},
         "what it shows half way"},
        {[](Stage& s) { EXPECT_TRUE(s.play("Read")); },
         {"0 frame Read1", "200 frame Read1"},
         "the pose that it ends in"},
        {[](Stage& s) {
             s.moveTo({30, 20}, kUsualMoveTime);
         },
         {"0 at 30,20"},
         "it is there"},
        {[](Stage& s) { EXPECT_TRUE(s.play("Search")); },
         {"0 sound off", "0 frame ReadReturn0", "0 frame Search1"},
         "which has no end"},
        {[](Stage& s) { s.stop(); }, {"0 frame Search2"}, "but is left at once"},
        {[](Stage& s) { s.hide(Manner::Animated); }, {"0 frame nothing", "0 gone"}, "without a farewell"},
        {[](Stage& s) { s.show(Manner::Animated); },
         {"0 frame RestPose0", "0 at 30,20", "0 shown"},
         "nor an entrance"},
    };
    for (const auto& [ask, seen, why] : steps) {
        world.log.now = Moment{};
        world.wake.reset();
        ask(*world.stage);
        EXPECT_EQ(seen, world.pass(Milliseconds{5000})) << why;
    }
    world.voice.isAvailable = false;
    EXPECT_TRUE(world.stage->speak("Good evening"));
    for (const std::string& line : untimed(world.pass(kLong)))
        EXPECT_TRUE(line.starts_with("balloon")) << line << ": the mouth rests";
    EXPECT_EQ(Lines{"Good evening"}, world.balloon.statements);
    world.pass(Milliseconds{60'000});
    const int calls = world.calls;
    EXPECT_EQ(Lines{}, world.pass(Milliseconds{600'000})) << "and it does not idle";
    EXPECT_EQ(calls, world.calls);
    world.stage->setStill(false);
    world.pass(Milliseconds{10'000});
    EXPECT_FALSE(world.pass(Milliseconds{60'000}).empty()) << "until it may";
}

TEST(HidingByTheUser, interruptsWhatIsGoingOn) {
    ShownWorld world;
    const Asked search = world.stage->play("Search");
    world.pass(Milliseconds{50});
    world.stage->hideByUser(VisibilityCause::UserHidByMenu);
    EXPECT_EQ("interrupted 8004210D", outcomeOf(*search));
    EXPECT_EQ(
        (Lines{"frame Search2", "end 2", "frame Hide0", "frame Hide1", "frame nothing", "gone", "hide 7"}),
        untimed(world.pass(kLong)));
    EXPECT_FALSE(world.stage->visible());
    EXPECT_EQ(VisibilityCause::UserHidByMenu, world.stage->visibilityCause());
    world.stage->hideByUser(VisibilityCause::UserHidByMenu);
    EXPECT_TRUE(world.pass(kLong).empty()) << "it is hidden";
}

TEST(HidingByTheUser, letsTheProgramsHideGoOn) {
    ShownWorld world;
    const RequestHandle hide = world.stage->hide(Manner::Animated);
    const RequestHandle show = world.stage->show(Manner::Animated);
    world.pass(Milliseconds{50});
    world.stage->hideByUser(VisibilityCause::UserHidByMenu);
    EXPECT_EQ("in progress", outcomeOf(hide));
    EXPECT_EQ("interrupted 80042108", outcomeOf(show)) << "the user wants it hidden";
    EXPECT_EQ((Lines{"end 0", "frame Hide1", "frame nothing", "gone", "hide 3", "end 1"}),
              untimed(world.pass(kLong)));
}

TEST(Stage, leavesNothingBehind) {
    ShownWorld world;
    ASSERT_TRUE(world.stage->speak("Hello"));
    world.pass(Milliseconds{50});
    world.asked = false;
    world.stage.reset();
    EXPECT_EQ((Lines{"silence", "balloon gone", "gone"}), untimed(world.log.take()));
    EXPECT_FALSE(world.asked) << "nobody is there any more to be called";
}

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
    world.surface.enlarged = 2; // over to a monitor on which it is drawn twice as large
    world.stage->dragTo({130, 240});
    EXPECT_EQ((Place{70, 160}), world.surface.place);
    world.surface.enlarged = 1;
    world.stage->endDrag(kLeftAt(140, 250));
    EXPECT_EQ((Lines{"drag start 1 0 30,40", "move 110,210 1", "drag complete 1 0 140,250"}),
              untimed(world.settle()));
    EXPECT_EQ(MoveCause::User, world.stage->moveCause());
    world.stage->dragTo({0, 0});
    world.stage->endDrag(kLeftAt(0, 0));
    EXPECT_TRUE(world.settle().empty()) << "nothing is held any more";
}

TEST(User, makesItLookAtWhatItIsDroppedOn) {
    const std::function<void(StageWorld&)> nothing = [](StageWorld&) {};
    const Lines looksDown = {"frame LookDown0", "balloon Here"};
    const struct {
        std::optional<Place> below;
        std::function<void(StageWorld&)> before;
        Lines seen;
        std::string_view why;
    } cases[] = {
        {{{-500, 40}}, nothing, {"frame LookRight0", "balloon Here"}, "at the window, and speaks so"},
        {{{60, 50}}, nothing, looksDown, "it stands on the middle of it"},
        {{}, nothing, looksDown, "the desktop does not tell"},
        {{}, [](auto& w) { w.stage->setCurious(false); }, {"balloon Here"}, "quiet is asked for"},
        {{}, [](auto& w) { w.stage->setIdleOn(false); }, {"balloon Here"}, "it does nothing unasked"},
        {{}, [](auto& w) { w.stage->setStill(true); }, {"balloon Here"}, "nothing is to move"},
        {{},
         [](auto& w) { EXPECT_TRUE(w.stage->play("Blink")); },
         {"frame Blink0", "frame LookDown0", "balloon Here"},
         "after what the drag has begun with"},
        {{},
         [](auto& w) { EXPECT_TRUE(w.stage->speak("So")); },
         {"balloon So"},
         "not when it has spoken about something else"},
    };
    for (const auto& [below, before, seen, why] : cases) {
        TestCharacter character = usualCharacter();
        for (const char* const look : {"LookRight", "LookDown"})
            character.animation(look, {{.mouths = {Mouth::OpenWide1}}});
        QuietWorld world(character);
        world.surface.below = below;
        world.stage->beginDrag(kLeftAt(0, 0));
        before(world);
        world.stage->endDrag(kLeftAt(0, 0));
        ASSERT_TRUE(world.stage->speak("Here")) << why;
        Lines lines = untimed(world.pass(kLong));
        std::erase_if(lines,
                      [](auto& line) { return !line.starts_with("frame") && !line.starts_with("balloon"); });
        EXPECT_EQ(seen, lines) << why;
    }
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
