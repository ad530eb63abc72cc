#include "character/stage/performer.h"

#include "stage/stage_world.h"

#include <gtest/gtest.h>

namespace brovin::character {
namespace {

/// The frames that are shown when these animations are played by name one after another.
Lines framesOf(const TestCharacter& character, const Lines& played) {
    StageWorld world(character);
    world.logsEvents = false;
    world.appear();
    for (const std::string& name : played)
        EXPECT_TRUE(world.stage->play(name)) << name;
    return untimed(world.pass(Milliseconds{5'000}));
}

TestCharacter reader() {
    TestCharacter character;
    character.animation("RestPose", {{.ms = 0}})
        .animation("ReadReturn", {{}})
        .animation("Read", {{}})
        .ledBackBy("ReadReturn")
        .animation("ReadContinued", {{}})
        .ledBackBy("ReadReturn")
        .animation("readblink", {{}})
        .ledBackBy("ReadReturn")
        .animation("Reader", {{}})
        .ledBackBy("ReadReturn")
        .animation("Wave", {{}})
        .animation("Greet", {{}, {.exit = 3}, {.ms = 0, .pictured = false}, {}}, Transition::ExitBranches)
        .animation("Stiff", {{}}, Transition::ExitBranches)
        .animation("Void", {})
        .animation("Fall", {{}})
        .ledBackBy("Void");
    // A way back that is to be led back from itself, by the animation that it leads back from.
    Animation& wayBack = character.data.animations[character.index("ReadReturn")];
    wayBack.transition = Transition::ReturnAnimation;
    wayBack.returnAnimation = character.index("Read");
    return character;
}

TEST(Performer, leadsBackFromTheLastAnimation) {
    const struct {
        Lines played;
        Lines shown;
        std::string_view why;
    } cases[] = {
        {{"Wave", "Read"}, {"Wave0", "Read0"}, "nothing to lead back from; none after the last"},
        {{"Read", "Wave"}, {"Read0", "ReadReturn0", "Wave0"}, "by the return animation"},
        {{"Read", "Read"}, {"Read0", "ReadReturn0", "Read0"}, "also before itself"},
        {{"Read", "READRETURN", "Wave"}, {"Read0", "ReadReturn0", "Wave0"}, "asked for by name: once"},
        {{"Read", "ReadContinued", "ReadReturn"},
         {"Read0", "ReadContinued0", "ReadReturn0"},
         "the pose goes on"},
        {{"Read", "readblink", "Wave"}, {"Read0", "readblink0", "ReadReturn0", "Wave0"}, "the pose goes on"},
        {{"Read", "Reader"}, {"Read0", "ReadReturn0", "Reader0"}, "the name does not say that it goes on"},
        {{"Greet", "Wave"},
         {"Greet0", "Greet1", "Greet2", "Greet3", "Wave0"},
         "played to its end, no exit there"},
        {{"Stiff", "Wave"}, {"Stiff0", "Wave0"}, "no exits"},
        {{"Fall", "Wave"}, {"Fall0", "Wave0"}, "a way back without frames"},
    };
    for (const auto& [played, shown, why] : cases) {
        Lines expected;
        for (const std::string& frame : shown)
            if (frame != "Greet2") // not seen: it only marks where the animation is left
                expected.push_back("frame " + frame);
        EXPECT_EQ(expected, framesOf(reader(), played)) << why;
    }
}

TEST(Performer, leavesByTheExitOfThePoseThatItStandsIn) {
    TestCharacter character;
    character.animation("RestPose", {{.ms = 0}})
        .animation("Greet", {{.branches = {{2, 100}}}, {}, {.ms = 0, .pictured = false}, {.ms = 0}},
                   Transition::ExitBranches)
        .animation("Wave", {{}});
    auto& frames = character.data.animations[character.index("Greet")].frames;
    frames[0].exitFrame = 1;
    frames[2].branches = {{4, 100}};
    frames.emplace_back(); // the end point
    EXPECT_EQ((Lines{"frame Greet0", "frame Greet1", "frame Wave0"}), framesOf(character, {"Greet", "Wave"}));
}

/// What is seen in the second after a stop, and in the second after Wave is then asked for.
struct AfterStop {
    Lines seen;
    Lines beforeWave;
};

AfterStop stopAfter(const TestCharacter& character, const Lines& played, Milliseconds time) {
    StageWorld world(character);
    world.logsEvents = false;
    world.appear();
    for (const std::string& name : played)
        EXPECT_TRUE(world.stage->play(name)) << name;
    static_cast<void>(world.pass(time));
    world.stage->stop();
    AfterStop after;
    after.seen = untimed(world.pass(Milliseconds{1'000}));
    EXPECT_TRUE(world.stage->play("Wave"));
    after.beforeWave = untimed(world.pass(Milliseconds{1'000}));
    return after;
}

TEST(Performer, takesTheNeutralPoseWhereTheWayOutLeadsRound) {
    TestCharacter character;
    character.animation("RestPose", {{.ms = 0}})
        .animation("Maze", {{.exit = 1, .branches = {{0, 100}}}, {.exit = 0}})
        .animation("Wave", {{}});
    const auto [seen, beforeWave] = stopAfter(character, {"Maze"}, Milliseconds{0});
    EXPECT_EQ((Lines{"frame Maze1", "frame Maze0", "frame RestPose0"}), seen);
    EXPECT_EQ((Lines{"frame Wave0"}), beforeWave);

    StageWorld world(character);
    world.logsEvents = false;
    world.appear();
    ASSERT_TRUE(world.stage->play("Maze"));
    static_cast<void>(world.settle());
    world.stage->stop();
    ASSERT_TRUE(world.stage->play("Wave"));
    EXPECT_EQ((Lines{"frame Maze1", "frame Maze0", "frame RestPose0", "frame Wave0"}),
              untimed(world.pass(Milliseconds{1'000})))
        << "asked for on the way";
}

TEST(Performer, leadsBackFromALoopThatWasLeftByItsExits) {
    TestCharacter character;
    character.animation("RestPose", {{.ms = 0}})
        .animation("ReadReturn", {{}})
        .animation("Reading", {{.exit = 1, .branches = {{0, 100}}}, {}})
        .ledBackBy("ReadReturn")
        .animation("Wave", {{}});
    const auto [seen, beforeWave] = stopAfter(character, {"Reading"}, Milliseconds{0});
    EXPECT_EQ((Lines{"frame Reading1"}), seen);
    EXPECT_EQ((Lines{"frame ReadReturn0", "frame Wave0"}), beforeWave);
}

TEST(Performer, letsAWayBackGoOnWhenItIsStopped) {
    TestCharacter character;
    character.animation("RestPose", {{.ms = 0}})
        .animation("ReadReturn", {{}, {}, {}})
        .animation("Read", {{}})
        .ledBackBy("ReadReturn")
        .animation("Wave", {{}});
    const auto [seen, beforeWave] = stopAfter(character, {"Read", "Wave"}, Milliseconds{150});
    EXPECT_EQ((Lines{"frame ReadReturn1", "frame ReadReturn2"}), seen);
    EXPECT_EQ((Lines{"frame Wave0"}), beforeWave) << "and not once more";

    Animation& wayBack = character.data.animations[character.index("ReadReturn")];
    wayBack.frames.back().branches = {{0, 100}};
    const auto [round, afterwards] = stopAfter(character, {"Read", "Wave"}, Milliseconds{5'050});
    ASSERT_FALSE(round.empty());
    EXPECT_EQ("frame RestPose0", round.back()) << "one that never ends is given up";
    EXPECT_EQ((Lines{"frame Wave0"}), afterwards);
}

} // namespace
} // namespace brovin::character
