#include "stage/stage_world.h"

#include <gtest/gtest.h>

#include <functional>
#include <random>
#include <string>

namespace brovin::character {
namespace {

/// Makes characters up whose animations loop, end in nothing and lead back in circles, and does things to
/// them in any order.
class Chaos {
public:
    explicit Chaos(std::uint32_t seed) : random_(seed), world_(character()) {
        world_.logsEvents = false;
        world_.chance.seed(seed);
        world_.sound.lengths[0] = Milliseconds{300};
        world_.voice.isAvailable = below(2) == 0;
    }

    void doSomething() {
        const auto& acts = below(2) == 0 ? requesting_ : disturbing_;
        acts[below(acts.size())]();
    }

    void pass() {
        world_.pass(Milliseconds{below(10) == 0 ? below(60'000) : below(500)});
        EXPECT_TRUE(!world_.wake || *world_.wake > world_.log.now) << "it would be called without end";
    }

    /// After this nothing is left to be done, whatever was going on.
    void expectEveryRequestToEnd() {
        world_.stage->stopAll(kStopEverything);
        world_.settle();
        for (const RequestHandle& request : requests_)
            EXPECT_TRUE(request->status != RequestStatus::Pending &&
                        request->status != RequestStatus::InProgress);
    }

private:
    static constexpr std::uint32_t kAnimations = 14;

    std::uint32_t below(std::size_t bound) { return static_cast<std::uint32_t>(random_() % bound); }

    static std::string nameOf(std::uint32_t animation) { return "A" + std::to_string(animation); }

    Place anywhere() { return {static_cast<int>(below(400)) - 100, static_cast<int>(below(400)) - 100}; }
    Manner anyManner() { return below(2) == 0 ? Manner::Fast : Manner::Animated; }

    void keep(const RequestHandle& request) { requests_.push_back(request); }
    void keep(const Asked& asked) {
        if (asked)
            keep(*asked);
    }

    void voice() {
        if (world_.voice.listener == nullptr)
            return;
        world_.voice.listener->wordReached(below(12));
        world_.voice.listener->soundReached(below(2) == 0 ? "a" : "m");
        if (below(3) == 0)
            world_.voice.end();
    }

    TestCharacter character() {
        TestCharacter made;
        for (std::uint32_t i = 0; i < kAnimations; ++i) {
            made.animation(nameOf(i), {}, static_cast<Transition>(below(3)));
            Animation& added = made.data.animations.back();
            if (added.transition == Transition::ReturnAnimation)
                added.returnAnimation = below(kAnimations);
            const auto frames = static_cast<std::uint16_t>(below(5));
            for (std::uint16_t f = 0; f < frames; ++f)
                added.frames.push_back(frame(i, f, frames));
        }
        for (const char* const state :
             {"Showing", "Hiding", "Speaking", "MovingLeft", "MovingRight", "GesturingUp", "GesturingLeft",
              "IdlingLevel1", "IdlingLevel2", "IdlingLevel3"}) {
            State& added = made.data.states.emplace_back();
            added.name = state;
            for (auto count = below(3); count > 0; --count)
                added.animations.push_back(below(kAnimations));
        }
        return made;
    }

    Frame frame(std::uint32_t animation, std::uint16_t number, std::uint16_t frames) {
        const auto any = [&] { return static_cast<std::uint16_t>(below(frames)); };
        Frame made;
        if (below(3) > 0)
            made.images.push_back({animation * 1'000 + number, 0, 0});
        made.duration = FrameDuration{static_cast<int>(below(3) * 7)};
        if (below(3) == 0)
            made.exitFrame = any();
        for (auto count = below(3); count > 0; --count)
            made.branches.push_back({any(), static_cast<std::uint16_t>(below(130))});
        if (below(2) == 0)
            made.mouths.push_back({static_cast<Mouth>(below(kMouthCount)), false, 0, 0, 0});
        if (below(8) == 0)
            made.sound = std::uint16_t{0};
        return made;
    }

    using Acts = std::vector<std::function<void()>>;

    std::mt19937 random_;
    StageWorld world_;
    std::vector<RequestHandle> requests_;
    Stage& stage_ = *world_.stage;
    const Acts requesting_ = {
        [this] { keep(stage_.show(anyManner())); },
        [this] { keep(stage_.hide(anyManner())); },
        [this] { keep(stage_.speak(R"(\Spd=400\One \Mrk=1\two \Map="3"="three"\)")); },
        [this] { keep(stage_.speak(R"(\Lst\)")); },
        [this] { keep(stage_.moveTo(anywhere(), Milliseconds{below(600)})); },
        [this] { keep(stage_.gestureAt(anywhere())); },
        [this] { keep(stage_.play(nameOf(below(kAnimations)))); },
        [this] { keep(stage_.play(nameOf(below(kAnimations)))); },
    };
    const Acts disturbing_ = {
        [this] { stage_.stop(); },
        [this] { stage_.stopAll(below(64)); },
        [this] {
            stage_.beginDrag({1, 0, anywhere()});
        },
        [this] {
            stage_.endDrag({1, 0, anywhere()});
        },
        [this] {
            stage_.click({1, 0, anywhere()});
        },
        [this] { stage_.hideByUser(VisibilityCause::UserHidByMenu); },
        [this] { stage_.setPlace(anywhere(), MoveCause::Program); },
        [this] { requests_.empty() ? RequestError::None : stage_.stop(*requests_.back()); },
        [this] { voice(); },
        [this] { voice(); },
    };
};

TEST(Chaos, neverHangsNorLosesARequest) {
    for (std::uint32_t seed = 0; seed < 150 && !testing::Test::HasFailure(); ++seed) {
        SCOPED_TRACE(seed);
        Chaos chaos(seed);
        for (int i = 0; i < 120; ++i) {
            chaos.doSomething();
            chaos.pass();
        }
        chaos.expectEveryRequestToEnd();
    }
}

} // namespace
} // namespace brovin::character
