#include "character/stage/request.h"
#include "stage/stage_world.h"

#include <gtest/gtest.h>

#include <functional>
#include <string_view>
#include <utility>

namespace brovin::character {
namespace {

using Call = std::function<RequestHandle(Stage&)>;

RequestHandle accepted(Asked asked) {
    return asked ? *asked : nullptr;
}

const Call kShow = [](Stage& stage) { return stage.show(Manner::Animated); };
const Call kHide = [](Stage& stage) { return stage.hide(Manner::Animated); };
const Call kWave = [](Stage& stage) { return accepted(stage.play("Wave")); };
const Call kSearch = [](Stage& stage) { return accepted(stage.play("Search")); };
const Call kSpeak = [](Stage& stage) { return accepted(stage.speak("Hello there")); };
const Call kMove = [](Stage& stage) { return stage.moveTo({100, 0}, kUsualMoveTime); };
const Call kGesture = [](Stage& stage) { return stage.gestureAt({500, 40}); };

TEST(RequestQueue, carriesRequestsOutInTheirOrder) {
    StageWorld world;
    const std::vector<RequestHandle> kept = {kShow(*world.stage), kWave(*world.stage)};
    kHide(*world.stage); // nobody keeps this one, nor hears of its start and end
    EXPECT_EQ("in progress", outcomeOf(kept.front())) << "within the call";
    EXPECT_EQ("pending", outcomeOf(kept.back()));
    EXPECT_TRUE(world.log.take().empty()) << "nothing is seen within the call";
    EXPECT_EQ((Lines{"0 shown", "0 frame Show0", "0 start 0", "0 show 4", "100 frame Show1",
                     "200 frame Wave0", "200 end 0", "200 start 2", "300 frame Wave1", "400 frame Hide0",
                     "400 end 2", "500 frame Hide1", "600 frame nothing", "600 gone", "600 hide 3"}),
              world.pass(Milliseconds{3'000}));
    for (const RequestHandle& request : kept)
        EXPECT_EQ("complete", outcomeOf(request));
}

/// What a stop brings about soon, but for the requests' own events.
Lines effectsOf(StageWorld& world, const std::function<void(Stage&)>& stop) {
    static_cast<void>(world.log.take());
    stop(*world.stage);
    Lines told = untimed(world.pass(Milliseconds{60})); // what is not stopped has a frame due in that time
    std::erase_if(
        told, [](const std::string& line) { return line.starts_with("start ") || line.starts_with("end "); });
    return told;
}

TEST(RequestQueue, stopsEveryKindOfRequest) {
    const struct {
        std::string_view what;
        Call call;
        int after; ///< ms; negative: before anything has begun
        Lines effects;
    } cases[] = {
        {"Play", kWave, -1, {}},
        {"Play, cut where it has no exit to take but goes on", kWave, 50, {"frame Wave1"}},
        {"Play of a loop, left by its exit", kSearch, 150, {"frame Search2"}},
        {"Play without exits, cut", [](Stage& stage) { return accepted(stage.play("Read")); }, 50, {}},
        {"Speak", kSpeak, -1, {}},
        {"Speak", kSpeak, 50, {"silence", "frame RestPose0", "balloon gone", "balloon hidden"}},
        {"MoveTo, taking the pose", kMove, 50, {}},
        {"MoveTo, half-way", kMove, 700, {"move 49,0 2"}},
        {"GestureAt", kGesture, 50, {}},
    };
    for (const auto& [what, call, after, effects] : cases)
        for (const bool all : {false, true}) {
            ShownWorld world;
            const RequestHandle request = call(*world.stage);
            const RequestHandle behind = kWave(*world.stage);
            if (after >= 0)
                world.pass(Milliseconds{after});
            if (world.voice.listener != nullptr)
                world.voice.listener->soundReached("a");
            const auto stop = [all](Stage& stage) { all ? stage.stopAll(kStopEverything) : stage.stop(); };
            EXPECT_EQ(effects, effectsOf(world, stop)) << what << after << all;
            EXPECT_EQ("interrupted 8004210C", outcomeOf(request)) << what << after << all;
            EXPECT_EQ("interrupted 80042108", outcomeOf(behind)) << what << after << all;
        }
}

TEST(RequestQueue, showAndHideInProgressSurviveStopButNotStopAll) {
    const struct {
        Call call;
        bool shown; ///< before
        int after;
        Lines goesOn;
        Lines cut;
    } cases[] = {
        {kHide, true, -1, {"frame Hide0"}, {"frame nothing", "gone", "hide 3"}},
        {kHide, true, 50, {"frame Hide1"}, {"frame nothing", "gone", "hide 3"}},
        {kShow, false, -1, {"shown", "frame Show0", "show 4"}, {"frame Show1"}}, // its last picture stays
        {kShow, false, 50, {"frame Show1"}, {"frame Show1"}},
    };
    for (const auto& [call, shown, after, goesOn, cut] : cases) {
        StageWorld world;
        if (shown)
            world.appear();
        const RequestHandle request = call(*world.stage);
        const RequestHandle behind = kWave(*world.stage);
        if (after >= 0)
            world.pass(Milliseconds{after});
        EXPECT_EQ(goesOn, effectsOf(world, [](Stage& stage) { stage.stop(); })) << after;
        EXPECT_EQ("in progress", outcomeOf(request)) << after;
        EXPECT_EQ("interrupted 80042108", outcomeOf(behind)) << after;
        EXPECT_EQ(cut, effectsOf(world, [](Stage& stage) { stage.stopAll(kStopEverything); })) << after;
        EXPECT_EQ("interrupted 8004210C", outcomeOf(request)) << after;
        EXPECT_EQ(!shown, world.stage->visible()) << after;
    }
}

TEST(RequestQueue, aShowThatIsCutBeforeItBeganStillShows) {
    StageWorld world;
    kShow(*world.stage);
    world.stage->stopAll(kStopEverything);
    EXPECT_EQ((Lines{"frame Show1", "shown", "show 4"}), untimed(world.pass(Milliseconds{1'000})));
}

TEST(RequestQueue, stopsByType) {
    const struct {
        StopTypes types;
        Lines outcomes; ///< of Search (in progress), Wave, Speak, MoveTo, GestureAt, Hide
    } cases[] = {
        {kStopPlay,
         {"interrupted 8004210C", "interrupted 80042108", "in progress", "pending", "pending", "pending"}},
        {kStopSpeak, {"in progress", "pending", "interrupted 80042108", "pending", "pending", "pending"}},
        {kStopMove, {"in progress", "pending", "pending", "interrupted 80042108", "pending", "pending"}},
        {kStopShowAndHide,
         {"in progress", "pending", "pending", "pending", "pending", "interrupted 80042108"}},
        {0, {"in progress", "pending", "pending", "pending", "pending", "pending"}},
    };
    for (const auto& [types, outcomes] : cases) {
        ShownWorld world;
        std::vector<RequestHandle> requests;
        for (const Call& call : {kSearch, kWave, kSpeak, kMove, kGesture, kHide})
            requests.push_back(call(*world.stage));
        world.pass(Milliseconds{50});
        world.stage->stopAll(types);
        Lines found;
        for (const RequestHandle& request : requests)
            found.push_back(outcomeOf(request));
        EXPECT_EQ(outcomes, found) << types;
    }
}

TEST(RequestQueue, stopsOneRequest) {
    ShownWorld world;
    StageWorld other;
    const RequestHandle search = kSearch(*world.stage);
    const RequestHandle wave = kWave(*world.stage);
    const RequestHandle hide = kHide(*world.stage);
    EXPECT_EQ(RequestError::OtherCharactersRequest, other.stage->stop(*wave));
    EXPECT_EQ("pending", outcomeOf(wave));
    EXPECT_EQ(RequestError::None, world.stage->stop(*wave));
    EXPECT_EQ("interrupted 80042108", outcomeOf(wave));
    EXPECT_EQ(RequestError::RequestNotFound, world.stage->stop(*wave)) << "a second time";
    EXPECT_EQ(RequestError::None, world.stage->stop(*search));
    EXPECT_EQ("interrupted 8004210C", outcomeOf(search));
    EXPECT_EQ("in progress", outcomeOf(hide)) << "the others stay";
}

TEST(RequestQueue, takesAwayNothingWhenThereIsNothing) {
    ShownWorld world;
    world.stage->stop();
    world.stage->stopAll(kStopEverything);
    EXPECT_TRUE(world.settle().empty());
}

TEST(RequestQueue, failsRequestsOfAHiddenCharacterInTheirTurn) {
    const struct {
        std::string_view what;
        Call call;
        std::string_view outcome;
    } cases[] = {
        {"Play", kWave, "failed 8004200A"},
        {"Speak", kSpeak, "failed 8004200A"},
        {"GestureAt", kGesture, "failed 8004200A"},
        {"MoveTo", kMove, "failed 8004200A"},
        {"Hide", kHide, "complete"},
    };
    for (const auto& [what, call, outcome] : cases) {
        StageWorld world;
        world.logsEvents = false;
        const RequestHandle request = call(*world.stage);
        EXPECT_EQ("in progress", outcomeOf(request)) << what;
        EXPECT_TRUE(world.settle().empty()) << what << " shows nothing and makes no sound";
        EXPECT_EQ(outcome, outcomeOf(request)) << what;
    }
}

TEST(RequestQueue, refusesWhatCannotBePlayed) {
    ShownWorld world;
    const RequestHandle search = kSearch(*world.stage);
    for (const std::string_view name : {"Dance", "", " Wave"}) {
        const Asked asked = world.stage->play(name);
        ASSERT_FALSE(asked) << name;
        EXPECT_EQ(RequestError::UnknownAnimation, asked.failure()) << name;
    }
    EXPECT_EQ("in progress", outcomeOf(search)) << "what is running goes on";
    world.stage->stop();
    EXPECT_TRUE(world.stage->play("wAVE")) << "whatever the case";
    const RequestHandle broken = accepted(world.stage->play("Broken"));
    const RequestHandle nowhere = world.stage->gestureAt({-500, 40});
    world.pass(Milliseconds{1'000});
    EXPECT_EQ("failed 8004200F", outcomeOf(broken)) << "no frames";
    EXPECT_EQ("failed 80042004", outcomeOf(nowhere)) << "no animation for that direction";
}

TEST(RequestQueue, waitsForTheSoundOfAnAnimation) {
    TestCharacter character = usualCharacter();
    character.animation("Bang", {{.sound = 3}});
    QuietWorld world(character);
    world.sound.lengths[3] = Milliseconds{700};
    const RequestHandle bang = accepted(world.stage->play("Bang"));
    world.pass(Milliseconds{699});
    EXPECT_EQ("in progress", outcomeOf(bang));
    world.pass(Milliseconds{1});
    EXPECT_EQ("complete", outcomeOf(bang));

    ASSERT_TRUE(world.stage->play("Bang"));
    EXPECT_EQ((Lines{"700 frame Bang0", "700 sound 3"}), world.settle());
    world.stage->stop();
    EXPECT_EQ((Lines{"700 sound off"}), world.settle());

    world.stage->setSoundEffectsOn(false);
    const RequestHandle quiet = accepted(world.stage->play("Bang"));
    EXPECT_EQ((Lines{"700 frame Bang0"}), world.pass(Milliseconds{100}));
    EXPECT_EQ("complete", outcomeOf(quiet));
}

TEST(StopTypes, areReadFromTheirNames) {
    const struct {
        std::string_view names;
        StopTypes types;
    } cases[] = {
        {"Play", kStopPlay},
        {"move,SPEAK", kStopMove | kStopSpeak},
        {" Play , Speak ", kStopPlay | kStopSpeak},
        {"Get,NonQueuedGet", 0},
        {"Dance", 0},
        {",,Move,", kStopMove},
        {"", kStopEverything},
    };
    for (const auto& [names, types] : cases)
        EXPECT_EQ(types, parseStopTypes(names)) << names;
}

} // namespace
} // namespace brovin::character
