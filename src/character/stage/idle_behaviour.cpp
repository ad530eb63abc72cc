#include "character/stage/idle_behaviour.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

namespace brovin::character {
namespace {

struct Level {
    Milliseconds after;
    Situation situation;
};

constexpr std::array<Level, 3> kLevels = {{
    {Milliseconds{0}, Situation::IdlingLevel1},
    {kIdleLevel2After, Situation::IdlingLevel2},
    {kIdleLevel3After, Situation::IdlingLevel3},
}};

Milliseconds drawBetween(Milliseconds shortest, Milliseconds longest, platform::Random& chance) {
    const auto spread = static_cast<double>((longest - shortest).count());
    return shortest + Milliseconds{std::lround(chance.next() * spread)};
}

} // namespace

Wake IdleBehaviour::advance(Moment now) {
    if (needs_.performer.busy())
        return acting_ ? sleepOn(now) : std::nullopt;
    if (!restingSince_)
        restingSince_ = now;
    if (!on_ || needs_.performer.still())
        return std::nullopt;
    if (now < *restingSince_ + kIdleAfter)
        return *restingSince_ + kIdleAfter;
    if (!idlingSince_) {
        idlingSince_ = now;
        nextAct_ = now;
        needs_.events.add(event::IdleStarted{});
    }
    return actIfDue(now);
}

void IdleBehaviour::interrupt(WithoutExits otherwise) {
    restingSince_.reset();
    nextAct_.reset();
    if (acting_)
        needs_.performer.stop(otherwise);
    acting_ = acting_ && otherwise == WithoutExits::PlayOn; // what is cut makes room for others
    if (!acting_)
        needs_.sounds.endCalm();
    if (!idlingSince_)
        return;
    idlingSince_.reset();
    needs_.events.add(event::IdleEnded{});
}

Wake IdleBehaviour::actIfDue(Moment now) {
    if (!nextAct_)
        nextAct_ = now + drawBetween(kShortestIdlePause, kLongestIdlePause, needs_.chance);
    if (now < *nextAct_)
        return nextAct_;
    const int level = levelAt(now);
    if (lookAround(level)) {
        begin(now);
        return std::nullopt;
    }
    for (int i = level; i >= 0; --i)
        if (perform(kLevels[static_cast<std::size_t>(i)].situation)) {
            begin(now);
            return std::nullopt;
        }
    return beginOfNextLevel(level);
}

void IdleBehaviour::begin(Moment now) {
    nextAct_.reset();
    actingSince_ = now;
    wakesAt_.reset();
    acting_ = true;
    needs_.sounds.beginCalm();
}

bool IdleBehaviour::lookAround(int level) {
    if (level + 1 == static_cast<int>(kLevels.size()) || !needs_.look)
        return false;
    const auto look = needs_.look();
    if (!look || look == lastAct_ || needs_.chance.next() >= kLooksAtPointer)
        return false;
    lastAct_ = look;
    needs_.performer.perform(*look);
    return true;
}

/// What is busy may be a loop without an end of its own.
Wake IdleBehaviour::sleepOn(Moment now) {
    if (now < actingSince_ + kShortestSleep)
        return actingSince_ + kShortestSleep;
    if (!wakesAt_)
        wakesAt_ = actingSince_ + drawBetween(kShortestSleep, kLongestSleep, needs_.chance);
    if (now < *wakesAt_)
        return wakesAt_;
    needs_.performer.stop(WithoutExits::PlayOn);
    actingSince_ = now; // where it has no exits it goes on
    wakesAt_.reset();
    return actingSince_ + kShortestSleep;
}

bool IdleBehaviour::perform(Situation situation) {
    auto act = needs_.situations.pick(situation, needs_.chance);
    if (!act)
        return false;
    const auto& all = needs_.situations.animations(situation);
    if (act == lastAct_) {
        const auto same = std::find(all.begin(), all.end(), *act);
        act = same + 1 == all.end() ? all.front() : *(same + 1);
    }
    lastAct_ = act;
    needs_.performer.perform(*act);
    return true;
}

int IdleBehaviour::levelAt(Moment now) const {
    int level = 0;
    while (level + 1 < static_cast<int>(kLevels.size()) &&
           now - *idlingSince_ >= kLevels[static_cast<std::size_t>(level) + 1].after)
        ++level;
    return level;
}

/// Of the next level that has any animations; nullopt: none has.
std::optional<Moment> IdleBehaviour::beginOfNextLevel(int level) const {
    for (auto i = static_cast<std::size_t>(level) + 1; i < kLevels.size(); ++i)
        if (!needs_.situations.animations(kLevels[i].situation).empty())
            return *idlingSince_ + kLevels[i].after;
    return std::nullopt;
}

} // namespace brovin::character
