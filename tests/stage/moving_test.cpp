#include "character/stage/direction.h"
#include "stage/stage_world.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string_view>

namespace brovin::character {
namespace {

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

} // namespace
} // namespace brovin::character
