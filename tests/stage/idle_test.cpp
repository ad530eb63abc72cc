#include "stage/stage_world.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <string>
#include <string_view>

namespace brovin::character {
namespace {

using std::chrono::hours;
using std::chrono::seconds;

/// Each level has an animation of its own; the last one is a sleep that goes on until it is left.
TestCharacter idler() {
    TestCharacter character = usualCharacter();
    character.animation("Look", {{}})
        .animation("Sleep", {{.ms = 1'000}, {.ms = 1'000, .exit = 2, .branches = {{0, 100}}}, {}},
                   Transition::ExitBranches);
    character.state("IdlingLevel1", {"Blink"})
        .state("IdlingLevel2", {"Look"})
        .state("IdlingLevel3", {"Sleep"});
    return character;
}

bool has(const Lines& lines, std::string_view line) {
    return std::ranges::find(lines, line) != lines.end();
}

TEST(Idle, beginsAfterTenSecondsOfRest) {
    StageWorld world(idler());
    world.stage->show(Manner::Animated);
    world.pass(Milliseconds{200});
    EXPECT_TRUE(world.pass(Milliseconds{9'999}).empty()) << "counted from the end of the last request";
    EXPECT_EQ((Lines{"10200 frame Blink0", "10200 idle"}), world.pass(Milliseconds{1}));
}

TEST(Idle, pausesBetweenAnimationsForFiveToFifteenSeconds) {
    for (const auto& [draw, ms] : {std::pair{0.0, 15'200}, {0.5, 20'200}, {0.99999, 25'200}}) {
        QuietWorld world(idler());
        world.chance.draws = {0.0, draw, 0.0}; // animation, pause, animation
        EXPECT_EQ((Lines{"10000 frame Blink0", std::to_string(ms) + " frame Blink0"}),
                  world.pass(Milliseconds{ms}));
    }
}

TEST(Idle, deepensWithTime) {
    ShownWorld world(idler());
    world.chance.draws.assign(1'000, 0.5); // a pause of ten seconds each time
    const Lines lines = world.pass(seconds{300});
    const auto first = [&lines](std::string_view frame) {
        const auto line = std::ranges::find_if(lines, [&](auto& l) { return l.ends_with(frame); });
        return line == lines.end() ? -1 : std::stoi(*line) / 1'000;
    };
    EXPECT_EQ(10, first("Blink0"));
    EXPECT_NEAR(75, first("Look0"), 5) << "60 s of idling, and then the next pause";
    EXPECT_NEAR(195, first("Sleep0"), 5);
}

TEST(Idle, takesALowerLevelWhereOneIsEmpty) {
    TestCharacter low = idler();
    low.data.states.pop_back();
    low.data.animations.erase(low.data.animations.begin() + low.index("Sleep"));
    ShownWorld world(low);
    world.pass(seconds{400});
    EXPECT_TRUE(has(untimed(world.pass(seconds{30})), "frame Look0")) << "the level below goes on";

    TestCharacter high = idler();
    high.data.states[3].animations.clear();
    high.data.animations[high.index("Blink")].name = "Wink"; // not the standard name either
    EXPECT_EQ((Lines{"10000 idle", "70000 frame Look0"}), ShownWorld(high).pass(seconds{71}))
        << "nothing below: it waits";
}

TEST(Idle, looksWhereThePointerIsNowAndThenButNotTwiceRunning) {
    const struct {
        Place mouse;
        const char* frame;
        std::string_view why;
    } cases[] = {
        {{-900, 40}, "10000 frame LookRight0", "left on the screen is at its right hand"},
        {{900, 20}, "10000 frame LookLeft0", "the other side"},
        {{-500, -500}, "10000 frame LookUpRight0", "between two"},
        {{-400, 500}, "10000 frame LookDown0", "there is no such look between two: the farther way"},
        {{18, 25}, "10000 frame Blink0", "before its nose"},
    };
    for (const auto& [mouse, frame, why] : cases) {
        TestCharacter character = idler();
        for (const char* const name : {"LookRight", "LookLeft", "LookDown", "LookUpRight"})
            character.animation(name, {{}});
        character.data.width = character.data.height = 40;
        QuietWorld world(character);
        world.surface.mouse = mouse;
        world.chance.draws.assign(9, 0.0);
        const Lines lines = world.pass(seconds{16});
        ASSERT_FALSE(lines.empty());
        EXPECT_EQ(frame, lines.front()) << why;
        EXPECT_TRUE(has(untimed(lines), "frame Blink0")) << why;
    }
}

TEST(Idle, breathesInThePausesAndRarelyDoesWhatTheSeasonBrings) {
    const struct {
        TimeOfYear today;
        const char* surprise;
    } cases[] = {
        {{1, 12}, "Scarf0"}, {{1, 23}, "Yawn0"}, {{7, 12}, ""}, {{7, 2}, "Yawn0"}, {{12, 5}, "Scarf0"}};
    for (const auto& [today, surprise] : cases) {
        TestCharacter character = idler();
        for (const char* const name : {"Breathe", "Wink", "Nod", "Scarf", "Yawn"})
            character.animation(name, {{}});
        character.state("Resting", {"Breathe", "Wink"})
            .state("IdlingLate", {"Yawn"})
            .state("IdlingWinter", {"Scarf"});
        for (const std::size_t level : {3U, 4U, 5U})
            character.data.states[level].animations = {character.index("Look"), character.index("Nod")};
        QuietWorld world(character);
        world.chance.seed(7);
        world.today = today;
        std::map<std::string, int> seen;
        std::string last;
        for (const std::string& line : untimed(world.pass(hours{10}))) {
            const std::string frame = line.substr(line.find(' ') + 1);
            ++seen[frame];
            if (frame != "Breathe0" && frame != "Wink0") {
                ASSERT_NE(last, frame) << "not twice running, whatever is between";
                last = frame;
            }
        }
        EXPECT_GT(seen["Look0"] + seen["Nod0"], 2'000) << "breathing holds nothing up";
        EXPECT_GT(seen["Breathe0"], 500);
        EXPECT_NEAR(seen["Breathe0"], seen["Wink0"], 1);
        for (const char* const frame : {"Scarf0", "Yawn0"})
            EXPECT_TRUE(frame == std::string_view(surprise) ? seen[frame] >= 5 && seen[frame] <= 20
                                                            : seen[frame] == 0)
                << frame << ' ' << seen[frame] << " in month " << today.month;
    }
}

TEST(Idle, staysStillWithoutIdleAnimations) {
    ShownWorld world(TestCharacter().animation("RestPose", {{}}));
    world.calls = 0;
    EXPECT_EQ((Lines{"10000 idle"}), world.pass(hours{24}));
    EXPECT_LE(world.calls, 2) << "it costs nothing";
}

TEST(Idle, endsWithAnyRequest) {
    ShownWorld world(idler());
    world.pass(seconds{240});
    ASSERT_TRUE(world.stage->play("Wave"));
    EXPECT_EQ((Lines{"frame Sleep2", "idle over", "frame Wave0", "frame Wave1"}),
              untimed(world.pass(Milliseconds{10'299})))
        << "left by its exit; the count begins anew when the request has ended";
    EXPECT_TRUE(has(untimed(world.pass(Milliseconds{1})), "frame Blink0")) << "at the first level";
}

TEST(Idle, endsWhenTheUserShowsUp) {
    ShownWorld world(idler());
    world.pass(Milliseconds{10'050});
    world.stage->click({});
    EXPECT_EQ((Lines{"idle over", "click 1 0 0,0"}), untimed(world.pass(Milliseconds{10'149})))
        << "counted from the end of what is playing";
    EXPECT_TRUE(has(untimed(world.pass(Milliseconds{1})), "idle"));

    world.pass(Milliseconds{9'000});
    world.stage->beginDrag({});
    EXPECT_FALSE(has(untimed(world.pass(hours{1})), "idle")) << "not in the user's hand";
    world.stage->endDrag({});
    EXPECT_TRUE(has(untimed(world.pass(seconds{11})), "idle"));
}

TEST(Idle, isNotCutShortByAClickAlone) {
    TestCharacter character = idler();
    character.animation("Stretch", {{}, {}});
    character.data.states[3].animations = {character.index("Stretch")};
    QuietWorld world(character);
    world.pass(Milliseconds{10'050});
    world.stage->click({});
    EXPECT_EQ((Lines{"10100 frame Stretch1", "20200 frame Stretch0"}), world.pass(Milliseconds{10'200}))
        << "no exits: it plays on";
    world.stage->click({});
    ASSERT_TRUE(world.stage->play("Wave"));
    ASSERT_TRUE(world.stage->play("Wave"));
    EXPECT_EQ((Lines{"frame Wave0", "frame Wave1", "frame Wave0", "frame Wave1"}),
              untimed(world.pass(seconds{1})))
        << "a request does not wait for its end, nor does the next one disturb the first";

    QuietWorld asleep(idler());
    asleep.pass(seconds{240});
    asleep.stage->click({});
    EXPECT_EQ((Lines{"frame Sleep2"}), untimed(asleep.pass(seconds{9}))) << "a click wakes it up";
}

TEST(Idle, sleepsQuietlyAndWakesNowAndThen) {
    TestCharacter character = idler();
    character.animation("Yawn", {{.sound = 1}});
    character.data.states[5].animations.push_back(character.index("Yawn"));
    Animation& sleep = character.data.animations[character.index("Sleep")];
    sleep.frames[0].sound = 2; // both frames of the loop
    sleep.frames[1].sound = 3;
    QuietWorld world(character);
    world.chance.seed(1);
    world.pass(seconds{300});
    std::string last;
    int wakings = 0;
    std::vector<long> sounds;
    for (const std::string& line : world.pass(hours{10})) {
        if (line.find(" sound ") != std::string::npos && !line.ends_with("off"))
            sounds.push_back(std::stol(line));
        if (line.ends_with("Yawn0") || line.ends_with("Sleep2")) {
            EXPECT_NE(last, line.substr(line.find(' '))) << "not twice running";
            last = line.substr(line.find(' '));
            wakings += line.ends_with("Sleep2") ? 1 : 0;
        }
    }
    EXPECT_GE(wakings, 60) << "after ten minutes at the latest";
    EXPECT_LE(wakings, 200) << "and not before three";
    EXPECT_LE(sounds.size(), 3U * static_cast<std::size_t>(wakings + 1)) << "each once, and not in the loop";
    for (std::size_t i = 2; i < sounds.size(); ++i)
        ASSERT_GE(sounds[i] - sounds[i - 2], 60'000) << "two in a minute";
}

TEST(Idle, canBeSwitchedOff) {
    ShownWorld world(idler());
    world.pass(Milliseconds{10'050});
    world.stage->setIdleOn(false);
    EXPECT_TRUE(world.pass(hours{1}).empty());
    world.stage->setIdleOn(true);
    EXPECT_EQ((Lines{"frame Sleep0"}), untimed(world.pass(seconds{5}))) << "it has been idling all the time";
}

TEST(Idle, restsWhileHidden) {
    ShownWorld world(idler());
    world.pass(seconds{240});
    world.stage->hide(Manner::Animated);
    world.pass(seconds{5});
    world.calls = 0;
    EXPECT_TRUE(world.pass(hours{24}).empty());
    EXPECT_EQ(0, world.calls);
}

} // namespace
} // namespace brovin::character
