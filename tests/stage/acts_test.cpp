#include "character/stage/direction.h"
#include "stage/stage_world.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
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

TEST(Direction, isTheCharactersOwn) {
    const struct {
        Place to;
        Direction direction;
        std::string_view why;
    } cases[] = {
        {{-10, 0}, Direction::Right, "left on the screen is at its right hand"},
        {{0, -10}, Direction::Up, "as on the screen"},
        {{-10, 10}, Direction::Right, "sideways when the distances are equal"},
        {{10, -10}, Direction::Left, "sideways when the distances are equal"},
        {{9, -10}, Direction::Up, "the greater distance decides"},
        {{0, 0}, Direction::Down, "the place itself"},
        {{-2'147'483'647, 2'147'483'647}, Direction::Right, "as far as it gets"},
    };
    for (const auto& [to, direction, why] : cases)
        EXPECT_EQ(direction, directionTo({0, 0}, to)) << why;
    EXPECT_EQ(Direction::Left, directionTo({-2'147'483'647, 0}, {2'147'483'647, 0}));
}

TEST(MoveTo, glidesInTheTravellingPoseForTheTimeGiven) {
    QuietWorld world;
    world.surface.logsPlaces = true;
    world.stage->moveTo({4, 0}, Milliseconds{400});
    EXPECT_EQ((Lines{"0 frame MoveLeft0", "100 frame MoveLeft1", "200 at 0,0", "300 at 1,0", "400 at 2,0",
                     "500 at 3,0", "600 at 4,0"}),
              world.pass(Milliseconds{1'000}))
        << "called no more often than there are pixels";
}

TEST(MoveTo, isSeenNoMoreOftenThanAScreenShowsIt) {
    ShownWorld world;
    world.calls = 0;
    world.stage->moveTo({3'000, 2'000}, Milliseconds{1'600});
    world.pass(Milliseconds{360});
    EXPECT_NEAR(84, world.stage->place().x, 30) << "it sets out gently";
    world.pass(Milliseconds{1'640});
    EXPECT_EQ((Place{3'000, 2'000}), world.stage->place());
    EXPECT_NEAR(100, world.calls, 10);
}

TEST(MoveTo, dependsOnSpeedPlaceAndAnimations) {
    const struct {
        Place target;
        int ms;
        Lines told;
        std::string_view why;
    } cases[] = {
        {{50, 0}, 0, {"0 move 50,0 2"}, "speed 0 is at once and without animation"},
        {{50, 0}, -5, {"0 move 50,0 2"}, "so is a negative one"},
        {{0, 0}, 1'000, {}, "it is there"},
        {{-50, 0}, 1'000, {"1000 move -50,0 2"}, "no animation for the direction: it glides all the same"},
        {{70'000, -70'000}, 0, {"0 move 32767,-32768 2"}, "places have 16 bits"},
    };
    for (const auto& [target, ms, told, why] : cases) {
        ShownWorld world;
        const RequestHandle move = world.stage->moveTo(target, Milliseconds{ms});
        Lines lines = world.pass(Milliseconds{5'000});
        std::erase_if(lines, [](const std::string& line) { return line.find(" 4") == line.size() - 2; });
        EXPECT_EQ(told, lines) << why;
        EXPECT_EQ("complete", outcomeOf(move)) << why;
    }
}

TEST(MoveTo, glidesInTheCharactersOwnWayAndEndsWhereItWasAskedTo) {
    const struct {
        const char* state;
        Place target;
        std::pair<int, int> past; ///< how far beyond the target it comes at least and at most
        std::pair<int, int> above;
        int arcs; ///< how often it sinks
        std::string_view why;
    } cases[] = {
        {"IdlingLevel1", {400, 0}, {0, 0}, {0, 0}, 0, "a stranger goes straight"},
        {"FLUTTERING", {400, 0}, {0, 0}, {9, 9}, 5, "each beat lifts it"},
        {"Fluttering", {-40, 0}, {0, 0}, {6, 6}, 5, "small arcs on a short way"},
        {"Sailing", {-400, 0}, {0, 0}, {40, 40}, 1, "an arc"},
        {"Drifting", {400, 0}, {16, 16}, {4, 14}, 2, "past it, and back"},
        {"Jolting", {400, 0}, {8, 8}, {0, 0}, 0, "a stop that shakes it"},
        {"Jolting", {10, 0}, {1, 1}, {0, 0}, 0, "hardly, on a short way"},
    };
    for (const auto& [state, target, past, above, arcs, why] : cases) {
        TestCharacter character = usualCharacter();
        character.animation("MoveRight", {{}, {}}).state(state, {"MoveLeft", "MoveRight"});
        ShownWorld world(character);
        world.stage->moveTo(target, Milliseconds{2'000});
        world.pass(Milliseconds{200});
        int farthest = 0;
        int highest = 0;
        int sinks = 0;
        int slope = 0;
        Place last{};
        for (int ms = 0; ms < 2'000; ms += 16) {
            world.pass(Milliseconds{16});
            const Place at = world.stage->place();
            EXPECT_LE(std::hypot(at.x - last.x, at.y - last.y), 9) << why << ", at " << ms;
            sinks += slope < 0 && at.y > last.y ? 1 : 0;
            slope = at.y == last.y ? slope : at.y - last.y;
            farthest = std::max(farthest, (at.x - target.x) * (target.x < 0 ? -1 : 1));
            highest = std::max(highest, -at.y);
            last = at;
        }
        EXPECT_EQ(target, last) << why << ": in the same time";
        EXPECT_TRUE(farthest >= past.first && farthest <= past.second) << why << ' ' << farthest;
        EXPECT_TRUE(highest >= above.first && highest <= above.second) << why << ' ' << highest;
        EXPECT_EQ(arcs, sinks) << why;
    }
}

TEST(MoveTo, ofAHiddenCharacterTellsOnlyOfRealMoves) {
    StageWorld world;
    const RequestHandle move = world.stage->moveTo({0, 0}, Milliseconds{0});
    EXPECT_EQ((Lines{"start 4", "end 4"}), untimed(world.settle()));
    EXPECT_EQ("complete", outcomeOf(move));
    world.stage->moveTo({0, 9}, kUsualMoveTime);
    EXPECT_EQ((Lines{"move 0,9 2"}), untimed(world.settle()));
}

TEST(MoveTo, goesOnFromWhereTheProgramPutsTheCharacter) {
    ShownWorld world;
    world.stage->moveTo({-100, 0}, Milliseconds{1'000});
    world.pass(Milliseconds{500});
    world.stage->setPlace({100, 0}, MoveCause::Program);
    EXPECT_EQ((Place{100, 0}), world.stage->place());
    world.pass(Milliseconds{250});
    EXPECT_NEAR(0, world.stage->place().x, 6);
    world.pass(Milliseconds{250});
    EXPECT_EQ((Place{-100, 0}), world.stage->place());
}

TEST(GestureAt, choosesTheDirectionFromTheFramesCentre) {
    TestCharacter character = usualCharacter();
    for (const char* const name : {"GestureRight", "GestureUp", "GestureDown"})
        character.animation(name, {{}});
    const std::pair<Place, const char*> cases[] = {
        {{200, 40}, "GestureLeft0"}, {{-200, 40}, "GestureRight0"}, {{50, 0}, "GestureUp0"},
        {{50, 90}, "GestureDown0"},  {{50, 40}, "GestureDown0"},
    };
    for (const auto& [at, frame] : cases) {
        QuietWorld world(character);
        world.stage->gestureAt(at);
        EXPECT_EQ(Lines{std::string("frame ") + frame}, untimed(world.pass(Milliseconds{500})));
    }
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
    const Lines looksDown = {"frame LookDown0", "balloon "};
    const struct {
        std::optional<Place> below;
        std::function<void(StageWorld&)> before;
        Lines seen;
        std::string_view why;
    } cases[] = {
        {{{-500, 40}}, nothing, {"frame LookRight0", "balloon "}, "at the window, and speaks so"},
        {{{60, 50}}, nothing, looksDown, "it stands on the middle of it"},
        {{}, nothing, looksDown, "the desktop does not tell"},
        {{}, [](auto& w) { w.stage->setCurious(false); }, {"balloon "}, "quiet is asked for"},
        {{}, [](auto& w) { w.stage->setIdleOn(false); }, {"balloon "}, "it does nothing unasked"},
        {{}, [](auto& w) { w.stage->setStill(true); }, {"balloon "}, "nothing is to move"},
        {{},
         [](auto& w) { EXPECT_TRUE(w.stage->play("Blink")); },
         {"frame Blink0", "frame LookDown0", "balloon "},
         "after what the drag has begun with"},
        {{},
         [](auto& w) { EXPECT_TRUE(w.stage->speak("So")); },
         {"balloon "},
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
