#include "stage/stage_world.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <string_view>

namespace brovin::character {
namespace {

using std::chrono::hours;
using std::chrono::seconds;

/// Each level has an animation of its own; the last one is a sleep that goes on until it is left.
TestCharacter idler() {
    TestCharacter character = usualCharacter();
    character.animation("Look", {{}})
        .animation("Yawn", {{}})
        .animation("Sleep", {{.ms = 1'000}, {.ms = 1'000, .exit = 2, .branches = {{0, 100}}}, {}},
                   Transition::ExitBranches);
    character.state("IdlingLevel1", {"Blink"})
        .state("IdlingLevel2", {"Look"})
        .state("IdlingLevel3", {"Sleep"});
    return character;
}

bool has(const Lines& lines, std::string_view line) {
    return std::find(lines.begin(), lines.end(), line) != lines.end();
}

TEST(Idle, beginsAfterTenSecondsOfRest) {
    StageWorld world(idler());
    world.stage->show(Manner::Animated);
    static_cast<void>(world.pass(Milliseconds{200}));
    EXPECT_TRUE(world.pass(Milliseconds{9'999}).empty()) << "counted from the end of the last request";
    EXPECT_EQ((Lines{"10200 frame Blink0", "10200 idle"}), world.pass(Milliseconds{1}));
}

TEST(Idle, pausesBetweenAnimationsForFiveToFifteenSeconds) {
    const struct {
        double draw;
        int ms; ///< when the second one begins
    } cases[] = {{0.0, 15'200}, {0.5, 20'200}, {0.99999, 25'200}};
    for (const auto& [draw, ms] : cases) {
        StageWorld world(idler());
        world.logsEvents = false;
        world.appear();
        world.chance.draws = {0.0, draw, 0.0}; // animation, pause, animation
        EXPECT_EQ((Lines{"10000 frame Blink0", std::to_string(ms) + " frame Blink0"}),
                  world.pass(Milliseconds{ms}));
    }
}

TEST(Idle, deepensWithTime) {
    StageWorld world(idler());
    world.appear();
    world.chance.seed(3);
    const Lines lines = world.pass(seconds{300});
    const auto first = [&lines](std::string_view frame) {
        for (const std::string& line : lines)
            if (line.ends_with(frame))
                return std::stoi(line) / 1'000;
        return -1;
    };
    EXPECT_EQ(10, first("Blink0"));
    EXPECT_GE(first("Look0"), 70) << "60 s of idling, and then the next pause";
    EXPECT_LE(first("Look0"), 86);
    EXPECT_GE(first("Sleep0"), 190);
    EXPECT_LE(first("Sleep0"), 206);
}

TEST(Idle, takesALowerLevelWhereOneIsEmpty) {
    TestCharacter low = idler();
    low.data.states.pop_back();
    low.data.animations.erase(low.data.animations.begin() + low.index("Sleep"));
    StageWorld world(low);
    world.appear();
    static_cast<void>(world.pass(seconds{400}));
    EXPECT_TRUE(has(untimed(world.pass(seconds{30})), "frame Look0")) << "the level below goes on";

    TestCharacter high = idler();
    high.data.states[3].animations.clear();
    high.data.animations[high.index("Blink")].name = "Wink"; // not the standard name either
    StageWorld other(high);
    other.appear();
    EXPECT_EQ((Lines{"10000 idle", "70000 frame Look0"}), other.pass(seconds{71}))
        << "nothing below: it waits";
}

TEST(Idle, staysStillWithoutIdleAnimations) {
    TestCharacter still;
    still.animation("RestPose", {{}});
    StageWorld world(still);
    world.appear();
    world.calls = 0;
    EXPECT_EQ((Lines{"10000 idle"}), world.pass(hours{24}));
    EXPECT_LE(world.calls, 2) << "it costs nothing";
}

TEST(Idle, endsWithAnyRequest) {
    StageWorld world(idler());
    world.appear();
    static_cast<void>(world.pass(seconds{240}));
    ASSERT_TRUE(world.stage->play("Wave"));
    Lines lines = untimed(world.pass(Milliseconds{500}));
    EXPECT_EQ((Lines{"frame Sleep2", "idle over", "frame Wave0", "frame Wave1"}), lines)
        << "left by its exit";
    lines = untimed(world.pass(Milliseconds{9'799}));
    EXPECT_TRUE(lines.empty()) << "the count begins anew when the request has ended";
    EXPECT_TRUE(has(untimed(world.pass(Milliseconds{1})), "frame Blink0")) << "at the first level";
}

TEST(Idle, endsWhenTheUserShowsUp) {
    StageWorld world(idler());
    world.appear();
    static_cast<void>(world.pass(Milliseconds{10'050}));
    world.stage->click({});
    EXPECT_EQ((Lines{"idle over", "click 1 0 0,0"}), untimed(world.pass(Milliseconds{10'149})))
        << "counted from the end of what is playing";
    EXPECT_TRUE(has(untimed(world.pass(Milliseconds{1})), "idle"));

    static_cast<void>(world.pass(Milliseconds{9'000}));
    world.stage->beginDrag({});
    EXPECT_FALSE(has(untimed(world.pass(hours{1})), "idle")) << "not in the user's hand";
    world.stage->endDrag({});
    EXPECT_TRUE(has(untimed(world.pass(seconds{11})), "idle"));
}

TEST(Idle, isNotCutShortByAClickAlone) {
    TestCharacter character = idler();
    character.animation("Stretch", {{}, {}});
    character.data.states[3].animations = {character.index("Stretch")};
    StageWorld world(character);
    world.logsEvents = false;
    world.appear();
    static_cast<void>(world.pass(Milliseconds{10'050}));
    world.stage->click({});
    EXPECT_EQ((Lines{"10100 frame Stretch1"}), world.pass(seconds{10})) << "no exits: it plays on";
    EXPECT_EQ((Lines{"20200 frame Stretch0"}), world.pass(Milliseconds{200}));
    world.stage->click({});
    ASSERT_TRUE(world.stage->play("Wave"));
    ASSERT_TRUE(world.stage->play("Wave"));
    EXPECT_EQ((Lines{"frame Wave0", "frame Wave1", "frame Wave0", "frame Wave1"}),
              untimed(world.pass(seconds{1})))
        << "a request does not wait for its end, nor does the next one disturb the first";

    StageWorld asleep(idler());
    asleep.logsEvents = false;
    asleep.appear();
    static_cast<void>(asleep.pass(seconds{240}));
    asleep.stage->click({});
    EXPECT_EQ((Lines{"frame Sleep2"}), untimed(asleep.pass(seconds{9}))) << "a click wakes it up";
}

TEST(Idle, canBeSwitchedOff) {
    StageWorld world(idler());
    world.appear();
    static_cast<void>(world.pass(Milliseconds{10'050}));
    world.stage->setIdleOn(false);
    EXPECT_TRUE(world.pass(hours{1}).empty());
    world.stage->setIdleOn(true);
    EXPECT_EQ((Lines{"frame Sleep0"}), untimed(world.pass(seconds{5}))) << "it has been idling all the time";

    StageWorld never(idler());
    never.stage->setIdleOn(false);
    never.appear();
    EXPECT_TRUE(never.pass(hours{1}).empty());
}

TEST(Idle, restsWhileHidden) {
    StageWorld world(idler());
    world.appear();
    static_cast<void>(world.pass(seconds{240}));
    world.stage->hide(Manner::Animated);
    static_cast<void>(world.pass(seconds{5}));
    world.calls = 0;
    EXPECT_TRUE(world.pass(hours{24}).empty());
    EXPECT_EQ(0, world.calls);
}

TEST(Idle, costsLittleInADay) {
    TestCharacter character = idler();
    character.data.states.back().animations = {character.index("Yawn"), character.index("Look")};
    StageWorld world(character);
    world.appear();
    world.chance.seed(11);
    world.calls = 0;
    std::map<std::string, int> count;
    for (const std::string& line : untimed(world.pass(hours{24})))
        ++count[line];
    EXPECT_EQ(1, count["idle"]);
    const int acts = count["frame Yawn0"] + count["frame Look0"] + count["frame Blink0"];
    EXPECT_NEAR(86'400 / 10.1, acts, 130) << "a pause is ten seconds on average";
    EXPECT_LE(world.calls, 2 * acts + 10) << "one call to begin an animation of one frame, and one to end it";
    // Four standard deviations of a draw between two are 185 here.
    EXPECT_NEAR(count["frame Yawn0"], count["frame Look0"], 2 * 185 + 30);
}

} // namespace
} // namespace brovin::character
