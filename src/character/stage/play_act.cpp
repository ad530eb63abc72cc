#include "character/stage/play_act.h"

#include "character/stage/direction.h"

#include <utility>

namespace brovin::character {

ActProgress PlayAct::advance(Moment now) {
    if (!std::exchange(begun_, true)) {
        const RequestError error = begin();
        return error == RequestError::None ? kActGoesOn : ActProgress{error, std::nullopt};
    }
    if (parts_.performer.busy())
        return kActGoesOn;
    if (const Wake soundEnd = parts_.sounds.playingUntil(now))
        return {std::nullopt, soundEnd};
    return kActComplete;
}

RequestError PlayAct::begin() {
    if (!parts_.presence.visible())
        return RequestError::CharacterHidden;
    const auto* const named = std::get_if<std::uint32_t>(&what_);
    const auto animation = named != nullptr ? std::optional(*named) : gestureTowards(std::get<Place>(what_));
    if (!animation)
        return RequestError::NoAnimationForState;
    if (parts_.character.animations[*animation].frames.empty())
        return RequestError::InvalidAnimation;
    parts_.performer.perform(*animation);
    return RequestError::None;
}

std::optional<std::uint32_t> PlayAct::gestureTowards(Place place) const {
    const Place way = parts_.presence.wayTo(place, parts_.character.width, parts_.character.height);
    return parts_.situations.pick(gesturingTowards(directionTo({}, way)), parts_.chance);
}

} // namespace brovin::character
