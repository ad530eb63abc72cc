#include "character/stage/animation_player.h"
#include "character/stage/performer.h"
#include "fakes/fake_stage.h"
#include "stage/stage_character.h"
#include "stage/stage_world.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

namespace brovin::character {
namespace {

using Lines = std::vector<std::string>;
using Frames = std::initializer_list<TestFrame>;

/// A player of one animation, "A".
struct World {
    explicit World(Frames frames) { character.animation("A", frames); }

    [[nodiscard]] const Animation& animation() const { return character.data.animations.front(); }

    /// Calls the player whenever it wants to be called, up to this time.
    Lines run(int untilMs) {
        const Moment until{Milliseconds{untilMs}};
        for (Wake wake = player.advance(log.now); wake && *wake <= until; wake = player.advance(log.now))
            log.now = *wake;
        return log.take();
    }
    void advanceAt(int ms) {
        log.now = Moment{Milliseconds{ms}};
        static_cast<void>(player.advance(log.now));
    }

    TestCharacter character;
    fakes::StageLog log;
    fakes::FakeStageChance chance;
    fakes::FakeStageSound output{log};
    SoundEffects sounds{output};
    fakes::FakeStageSurface surface{
        log, [this](const Frame& frame) { return TestCharacter::nameOf(character.data, frame); }};
    AnimationPlayer player{{chance, surface, sounds}};
};

TEST(AnimationPlayer, showsFramesForTheirTime) {
    const struct {
        Frames frames;
        Lines shown;
        std::string_view why;
    } cases[] = {
        {{{.ms = 100}, {.ms = 50}}, {"0 frame A0", "100 frame A1"}, "in order, and the last stays"},
        {{{.ms = 0, .pictured = false}, {}}, {"0 frame A1"}, "a frame with nothing is not shown"},
        {{{}, {.ms = 50, .pictured = false}, {}},
         {"0 frame A0", "100 frame nothing", "150 frame A2"},
         "a frame with time but without a picture is"},
        {{{}, {.ms = 0}}, {"0 frame A0", "100 frame A1"}, "a picture without time becomes the last one"},
        {{{.branches = {{2, 100}}}, {}, {}}, {"0 frame A0", "100 frame A2"}, "a branch forwards"},
        {{{.ms = 0, .branches = {{0, 100}}}}, {"0 frame A0"}, "a loop that takes no time is given up"},
        {{{.sound = 7}, {.sound = 8}},
         {"0 frame A0", "0 sound 7", "100 frame A1", "100 sound 8"},
         "a sound starts with its frame"},
        {{{}, {.ms = 0, .pictured = false, .sound = 7}}, {"0 frame A0"}, "but not with one unseen"},
        {{}, {}, "no frames at all"},
    };
    for (const auto& [frames, shown, why] : cases) {
        World world(frames);
        world.player.play(world.animation());
        EXPECT_EQ(shown, world.run(1000)) << why;
        EXPECT_FALSE(world.player.playing()) << why;
    }
    World loop({{.ms = 400}, {.ms = 400, .branches = {{0, 100}}}});
    loop.player.play(loop.animation());
    EXPECT_EQ((Lines{"0 frame A0", "400 frame A1", "800 frame A0"}), loop.run(1000)) << "goes on for ever";
    EXPECT_TRUE(loop.player.playing());
}

TEST(AnimationPlayer, leavesByTheExitFrames) {
    const struct {
        Frames frames;
        int after; ///< ms, when it is told to
        Lines shown;
        std::string_view why;
    } cases[] = {
        {{{.exit = 2}, {}, {.ms = 50}}, 30, {"30 frame A2"}, "at once, from the first frame"},
        {{{}, {.exit = 3}, {}, {}}, 150, {"150 frame A3"}, "the second frame's exit"},
        {{{}, {}, {.exit = 3}, {}},
         30,
         {"30 frame A1", "130 frame A2", "230 frame A3"},
         "the order leads there"},
        {{{.exit = 1}, {.branches = {{3, 100}}}, {}, {}},
         30,
         {"30 frame A1", "130 frame A3"},
         "a frame without an exit branches as usual"},
        {{{}, {.exit = 2, .branches = {{3, 100}}}, {}, {.ms = 0, .pictured = false}},
         500,
         {"500 frame A2"},
         "from the last frame that was seen, though the animation is over"},
        {{{}, {}}, 500, {}, "nothing is left to leave by"},
    };
    for (const auto& [frames, after, shown, why] : cases) {
        World world(frames);
        world.player.play(world.animation());
        static_cast<void>(world.run(after));
        world.log.now = Moment{Milliseconds{after}};
        world.player.leave();
        EXPECT_EQ(shown, world.run(2000)) << why;
        EXPECT_FALSE(world.player.playing() || world.player.strayed()) << why;
    }
}

TEST(AnimationPlayer, leavesOutFramesButNoBranchWhenItIsLate) {
    World world({{.sound = 1}, {.branches = {{3, 50}}, .sound = 2}, {}, {.ms = 500}});
    world.player.play(world.animation());
    world.chance.draws = {0.2};
    world.advanceAt(0);
    world.advanceAt(250);
    EXPECT_EQ((Lines{"0 frame A0", "0 sound 1", "250 frame A3", "250 sound 2"}), world.log.take());
    EXPECT_TRUE(world.chance.draws.empty()) << "the frame left out has drawn its branch";
    world.advanceAt(699);
    EXPECT_TRUE(world.player.playing()) << "the last frame's time counts from when it was due";
    world.advanceAt(700);
    EXPECT_FALSE(world.player.playing());
}

TEST(AnimationPlayer, doesNotMakeUpForAMachineThatSlept) {
    World world({{.ms = 10}, {.ms = 10, .branches = {{0, 100}}}});
    world.player.play(world.animation());
    world.advanceAt(0);
    world.chance.draws.assign(1'000, 0.5);
    const Moment later{std::chrono::hours{24}};
    const Wake wake = world.player.advance(later);
    EXPECT_EQ(later + Milliseconds{10}, wake);
    EXPECT_EQ(2U, world.log.take().size());
    EXPECT_GE(world.chance.draws.size(), 999U) << "the branches of a day are not drawn either";
}

TEST(AnimationPlayer, takesTheBranchWhoseRunningTotalExceedsTheDraw) {
    World world({{.branches = {{3, 20}, {2, 30}}}, {}, {}, {}});
    for (const auto& [draw, next] :
         {std::pair{0.0, 3}, {0.199, 3}, {0.2, 2}, {0.499, 2}, {0.5, 1}, {0.999, 1}}) {
        world.chance.draws = {draw};
        EXPECT_EQ(next, nextFrame(world.animation(), 0, world.chance)) << draw;
    }
}

TEST(AnimationPlayer, laysTheNearestMouthOverTheFrame) {
    using enum Mouth;
    const struct {
        std::vector<Mouth> has;
        std::optional<Mouth> wanted;
        std::string shown;
        std::string_view why;
    } cases[] = {
        {{Closed, OpenWide2}, OpenWide2, "0 frame A0+2", "the very one"},
        {{Closed, OpenWide1, OpenWide3}, OpenWide4, "0 frame A0+3", "the nearest open one"},
        {{OpenNarrow, OpenWide4}, OpenMedium, "0 frame A0+4", "the nearest open one"},
        {{Closed}, OpenWide4, "", "no open one: the frame as it is"},
        {{Closed, OpenWide4}, Closed, "0 frame A0+0", "the closed one"},
        {{OpenWide4}, Closed, "", "a closed mouth is no open one"},
        {{OpenWide4}, std::nullopt, "", "it does not speak"},
        {{}, OpenWide4, "", "it cannot speak"},
    };
    for (const auto& [has, wanted, shown, why] : cases) {
        World world({{.mouths = has}});
        world.player.play(world.animation());
        world.advanceAt(0);
        static_cast<void>(world.log.take());
        world.player.setMouth(wanted);
        EXPECT_EQ(shown.empty() ? Lines{} : Lines{shown}, world.log.take()) << why;
        world.player.setMouth(wanted);
        EXPECT_TRUE(world.log.take().empty()) << "nothing is drawn twice: " << why;
        world.player.play(world.animation());
        world.advanceAt(0);
        EXPECT_EQ(Lines{"0 frame A0"}, world.log.take()) << "an animation begins without: " << why;
    }
}

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
