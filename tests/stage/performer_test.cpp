#include "character/stage/performer.h"

#include "stage/stage_world.h"

#include <gtest/gtest.h>

namespace brovin::character {
namespace {

Lines frames(Lines names) {
    for (std::string& name : names)
        name.insert(0, "frame ");
    return names;
}

/// The frames that are shown when these animations are played by name one after another.
Lines framesOf(const TestCharacter& character, const Lines& played) {
    QuietWorld world(character);
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
        .ledBackBy("Void")
        .animation("Maze", {{.exit = 1, .branches = {{0, 100}}}, {.exit = 0}})
        .animation("Reading", {{.exit = 1, .branches = {{0, 100}}}, {}})
        .ledBackBy("ReadReturn")
        .animation("SitReturn", {{}, {}, {}})
        .animation("Sit", {{}})
        .ledBackBy("SitReturn")
        .animation("LieReturn", {{}, {.branches = {{0, 100}}}})
        .animation("Lie", {{}})
        .ledBackBy("LieReturn");
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
        {{"Greet", "Wave"}, {"Greet0", "Greet1", "Greet3", "Wave0"}, "played to its end, no exit there"},
        {{"Stiff", "Wave"}, {"Stiff0", "Wave0"}, "no exits"},
        {{"Fall", "Wave"}, {"Fall0", "Wave0"}, "a way back without frames"},
    };
    for (const auto& [played, shown, why] : cases) {
        EXPECT_EQ(frames(shown), framesOf(reader(), played)) << why;
    }
}

TEST(Performer, leavesByTheExitOfThePoseThatItStandsIn) {
    TestCharacter character;
    character.animation("RestPose", {{.ms = 0}})
        .animation("Greet", {{.branches = {{2, 100}}}, {}, {.ms = 0, .pictured = false}, {.ms = 0}},
                   Transition::ExitBranches)
        .animation("Wave", {{}});
    auto& greet = character.data.animations[character.index("Greet")].frames;
    greet[0].exitFrame = 1;
    greet[2].branches = {{4, 100}};
    greet.emplace_back(); // the end point
    EXPECT_EQ(frames({"Greet0", "Greet1", "Wave0"}), framesOf(character, {"Greet", "Wave"}));
}

TEST(Performer, findsItsWayOutWhenItIsStopped) {
    const struct {
        Lines played;
        int after;        ///< ms
        Lines seen;       ///< in the second after the stop
        Lines beforeWave; ///< when Wave is then asked for
        std::string_view why;
    } cases[] = {
        {{"Maze"}, 0, {"Maze1", "Maze0", "RestPose0"}, {}, "the neutral pose where the way out leads round"},
        {{"Reading"}, 0, {"Reading1"}, {"ReadReturn0"}, "a loop that was left by its exits is led back from"},
        {{"Sit", "Wave"}, 150, {"SitReturn1", "SitReturn2"}, {}, "a way back goes on, and not once more"},
        {{"Lie", "Wave"},
         5'050,
         {"LieReturn0", "LieReturn1", "RestPose0"},
         {},
         "one that never ends is given up"},
    };
    for (const auto& [played, after, seen, beforeWave, why] : cases) {
        QuietWorld world(reader());
        for (const std::string& name : played)
            ASSERT_TRUE(world.stage->play(name)) << name;
        world.pass(Milliseconds{after});
        world.stage->stop();
        EXPECT_EQ(frames(seen), untimed(world.pass(Milliseconds{1'000}))) << why;
        ASSERT_TRUE(world.stage->play("Wave"));
        Lines before = frames(beforeWave);
        before.emplace_back("frame Wave0");
        EXPECT_EQ(before, untimed(world.pass(Milliseconds{1'000}))) << why;
    }
}

} // namespace
} // namespace brovin::character
