#include "character/stage/move_act.h"

#include "character/stage/direction.h"

namespace brovin::character {

ActProgress MoveAct::advance(Moment now) {
    if (parts_.presence.dragged())
        return {RequestError::BeingDragged, std::nullopt};
    if (phase_ == Phase::NotBegun)
        return begin(now);
    return phase_ == Phase::TakingPose ? takePose(now) : glideOn(now);
}

void MoveAct::stop() {
    parts_.performer.stop();
    if (phase_ == Phase::Gliding)
        parts_.presence.reportMove(MoveCause::Program);
}

ActProgress MoveAct::begin(Moment now) {
    const Place here = parts_.presence.place();
    const bool atOnce = time_.count() <= 0;
    if (!parts_.presence.visible()) {
        if (here != target_)
            arrive();
        return {atOnce ? RequestError::None : RequestError::CharacterHidden, std::nullopt};
    }
    if (here == target_)
        return kActComplete;
    if (atOnce || parts_.performer.still())
        return arrive();
    phase_ = Phase::TakingPose;
    pose_ = parts_.situations.pick(movingTowards(directionTo(here, target_)), parts_.chance);
    if (pose_) // else it glides in whatever pose it has
        parts_.performer.perform(*pose_);
    return takePose(now);
}

ActProgress MoveAct::takePose(Moment now) {
    if (parts_.performer.busy())
        return kActGoesOn;
    phase_ = Phase::Gliding;
    setOut(now, time_);
    return glideOn(now);
}

void MoveAct::setOut(Moment now, Milliseconds time) {
    put_ = parts_.presence.place();
    glide_.emplace(put_, target_, now, time, gaitIn(parts_.character, pose_));
}

ActProgress MoveAct::glideOn(Moment now) {
    if (parts_.presence.place() != put_ && glide_->end() > now) // the program has put it elsewhere meanwhile
        setOut(now, glide_->end() - now);
    if (glide_->over(now))
        return arrive();
    parts_.presence.put(glide_->at(now));
    put_ = parts_.presence.place();
    return {std::nullopt, glide_->nextStep(now)};
}

ActProgress MoveAct::arrive() {
    parts_.presence.put(target_);
    parts_.presence.reportMove(MoveCause::Program);
    return kActComplete;
}

} // namespace brovin::character
