#include "character/stage/show_hide_acts.h"

#include <utility>

namespace brovin::character {

ActProgress ShowAct::advance(Moment /*now*/) {
    if (animation_) {
        if (parts_.performer.busy())
            return kActGoesOn;
        parts_.performer.settle();
        return kActComplete;
    }
    if (parts_.presence.visible())
        return kActComplete;
    if (manner_ == Manner::Animated && !parts_.performer.still())
        animation_ = parts_.situations.pick(Situation::Showing, parts_.chance);
    if (animation_)
        parts_.performer.perform(*animation_);
    else
        parts_.performer.poseNeutral();
    parts_.presence.appear(VisibilityCause::ProgramShowed);
    return animation_ ? kActGoesOn : kActComplete;
}

void ShowAct::stop() {
    const bool begun = animation_.has_value();
    if (!begun && parts_.presence.visible())
        return;
    if (!begun && manner_ == Manner::Animated && !parts_.performer.still())
        animation_ = parts_.situations.pick(Situation::Showing, parts_.chance);
    parts_.sounds.stop();
    if (animation_)
        parts_.performer.poseAtEndOf(*animation_);
    else
        parts_.performer.poseNeutral();
    if (!begun)
        parts_.presence.appear(VisibilityCause::ProgramShowed);
}

ActProgress HideAct::advance(Moment /*now*/) {
    if (!parts_.presence.visible())
        return kActComplete;
    if (!std::exchange(begun_, true)) {
        parts_.balloon.hide();
        if (manner_ == Manner::Animated && !parts_.performer.still() &&
            parts_.performer.perform(Situation::Hiding))
            return kActGoesOn;
    } else if (parts_.performer.busy()) {
        return kActGoesOn;
    }
    parts_.performer.clear();
    parts_.presence.disappear(cause_);
    return kActComplete;
}

void HideAct::stop() {
    if (!parts_.presence.visible())
        return;
    parts_.balloon.hide();
    parts_.sounds.stop();
    parts_.performer.clear();
    parts_.presence.disappear(cause_);
}

} // namespace brovin::character
