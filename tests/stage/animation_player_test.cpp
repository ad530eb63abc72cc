#include "character/stage/animation_player.h"

#include "fakes/fake_stage_chance.h"
#include "fakes/fake_stage_sound.h"
#include "fakes/fake_stage_surface.h"
#include "stage/stage_character.h"

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

} // namespace
} // namespace brovin::character
