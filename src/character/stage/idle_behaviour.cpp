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

/// Hours at which whoever is still up is late.
constexpr int kLateFrom = 22;
constexpr int kLateUntil = 5;

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
    nextBreath_.reset();
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
        return breatheIfDue(now);
    const int level = levelAt(now);
    if (surprise(now) || lookAround(level)) {
        begin(now);
        return std::nullopt;
    }
    for (int i = level; i >= 0; --i)
        if (perform(needs_.situations.animations(kLevels[static_cast<std::size_t>(i)].situation), lastAct_)) {
            begin(now);
            return std::nullopt;
        }
    return beginOfNextLevel(level);
}

/// Rarely enough that it costs little, and never while there would be something else to see.
Wake IdleBehaviour::breatheIfDue(Moment now) {
    if (needs_.resting.empty())
        return nextAct_;
    if (!nextBreath_)
        nextBreath_ = now + drawBetween(kShortestBreathPause, kLongestBreathPause, needs_.chance);
    if (now < *nextBreath_)
        return sooner(nextAct_, nextBreath_);
    const std::optional<Moment> act = nextAct_;
    if (!perform(needs_.resting, lastBreath_))
        return act;
    begin(now);
    nextAct_ = act;
    return std::nullopt;
}

bool IdleBehaviour::surprise(Moment now) {
    if (!needs_.today || (surprisedAt_ && now - *surprisedAt_ < kBetweenSurprises))
        return false;
    const TimeOfYear today = needs_.today();
    const bool late = today.hour >= kLateFrom || today.hour < kLateUntil;
    const bool winter = today.month <= 2 || today.month == 12;
    if ((!late && !winter) || (late ? needs_.late : needs_.winter).empty() ||
        needs_.chance.next() >= kSurprises || !perform(late ? needs_.late : needs_.winter, lastAct_))
        return false;
    surprisedAt_ = now;
    return true;
}

void IdleBehaviour::begin(Moment now) {
    nextAct_.reset();
    nextBreath_.reset();
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

bool IdleBehaviour::perform(const std::vector<std::uint32_t>& all, std::optional<std::uint32_t>& last) {
    if (all.empty())
        return false;
    std::optional act = all[drawBelow(needs_.chance, all.size())];
    if (act == last) {
        const auto same = std::find(all.begin(), all.end(), *act);
        act = same + 1 == all.end() ? all.front() : *(same + 1);
    }
    last = act;
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
