#include "character/stage/performer.h"

#include "character/letter_case.h"

#include <set>
#include <string>
#include <utility>

namespace brovin::character {

void Performer::perform(std::uint32_t animation) {
    next_ = animation;
    pending_ = true;
}

bool Performer::perform(Situation situation) {
    const auto picked = needs_.situations.pick(situation, needs_.chance);
    if (picked)
        perform(*picked);
    return picked.has_value();
}

void Performer::stop(WithoutExits otherwise) {
    const bool acting = phase_ == Phase::Acting && player_.playing();
    if (acting && otherwise == WithoutExits::PlayOn && !hasExits(animation(last_)))
        return;
    next_.reset();
    pending_ = true;
    needs_.sounds.stop();
    if (phase_ == Phase::GoingBack && !player_.leaving())
        player_.leave();
    if (acting)
        leaveOrCut();
}

void Performer::leaveOrCut() {
    const Animation& stopped = animation(last_);
    if (!hasExits(stopped)) {
        player_.cut();
        return;
    }
    player_.leave();
    phase_ = Phase::GoingBack;
    if (stopped.transition == Transition::ExitBranches)
        owes_ = false;
}

void Performer::poseAtEndOf(std::uint32_t index) {
    next_.reset();
    phase_ = Phase::Resting;
    last_ = index;
    owes_ = false;
    if (const auto frame = lastPicture(animation(index)))
        player_.pose(animation(index), *frame);
    else
        player_.cut();
}

void Performer::poseNeutral() {
    std::set<std::uint32_t> inVain; // a state may name the same animation thousands of times
    for (const Situation situation : {Situation::Speaking, Situation::Showing})
        for (const std::uint32_t candidate : needs_.situations.animations(situation))
            if (inVain.insert(candidate).second && lastPicture(animation(candidate))) {
                poseAtEndOf(candidate);
                return;
            }
}

void Performer::clear() {
    next_.reset();
    phase_ = Phase::Resting;
    owes_ = false;
    player_.clear();
}

bool Performer::canSpeak() const {
    return !busy() && player_.shown() != nullptr && !player_.shown()->mouths.empty();
}

void Performer::setStill(bool still) {
    player_.setStill(still);
    if (still)
        player_.setMouth(std::nullopt);
    pending_ = true;
}

Wake Performer::advance(Moment now, Haste haste) {
    pending_ = false;
    for (;;) {
        if (phase_ == Phase::GoingBack && (haste != Haste::None || still()))
            player_.hurry(kLongestWayBack);
        else if (phase_ == Phase::Acting && (haste == Haste::Pose || haste == Haste::Entrance))
            player_.hurry(haste == Haste::Pose ? kLongestPose : kLongestEntrance);
        const Wake wake = player_.advance(now);
        if (player_.playing())
            return wake;
        endPhase();
        if (!next_)
            return std::nullopt;
        beginNext();
    }
}

void Performer::endPhase() {
    if (std::exchange(phase_, Phase::Resting) != Phase::GoingBack || !player_.strayed())
        return;
    const auto next = next_;
    poseNeutral();
    next_ = next;
}

void Performer::beginNext() {
    const std::uint32_t index = *next_;
    if (std::exchange(owes_, false) && goBackBefore(index)) {
        phase_ = Phase::GoingBack;
        return;
    }
    next_.reset();
    last_ = index;
    owes_ = !std::exchange(nextLeadsBack_, false);
    phase_ = Phase::Acting;
    player_.play(animation(index));
}

/// True: something that leads back has begun.
bool Performer::goBackBefore(std::uint32_t next) {
    const Animation& last = animation(last_);
    if (last.transition == Transition::ExitBranches && hasExits(last))
        player_.leave();
    if (last.transition == Transition::ReturnAnimation) {
        const std::uint32_t wayBack = *last.returnAnimation;
        nextLeadsBack_ = next == wayBack;
        if (!nextLeadsBack_ && !continuesPose(next, wayBack))
            player_.play(animation(wayBack));
    }
    return player_.playing();
}

/// Whether an animation takes up the pose that `wayBack` would lead back from ("ReadContinued" after "Read").
bool Performer::continuesPose(std::uint32_t next, std::uint32_t wayBack) const {
    const std::string name = foldedCase(animation(next).name);
    return animation(next).returnAnimation == wayBack &&
           (name.ends_with("continued") || name.ends_with("blink"));
}

} // namespace brovin::character
