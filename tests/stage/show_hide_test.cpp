#include "stage/stage_world.h"

#include <gtest/gtest.h>

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

} // namespace
} // namespace brovin::character
