#include "character/stage/speak_act.h"

#include <utility>

namespace brovin::character {
namespace {

VoiceStyle usualStyle(const CharacterData& character) {
    VoiceStyle style;
    if (character.voice) {
        style.wordsPerMinute = character.voice->wordsPerMinute;
        style.pitchHertz = character.voice->pitchHertz;
    }
    return style;
}

} // namespace

ActProgress SpeakAct::advance(Moment now) {
    switch (phase_) {
    case Phase::NotBegun:
        return begin(now);
    case Phase::Waiting:
    case Phase::TakingPose:
        return takePose(now);
    case Phase::AwaitingSilence:
        return awaitSilence(now);
    case Phase::Speaking:
        break;
    }
    return speakOn(now);
}

void SpeakAct::stop() {
    if (phase_ == Phase::Speaking)
        parts_.narration.stop();
    else
        parts_.performer.stop();
}

ActProgress SpeakAct::begin(Moment now) {
    if (!parts_.presence.visible())
        return {RequestError::CharacterHidden, std::nullopt};
    if (!prepare() || !parts_.narration.possible())
        return kActComplete;
    parts_.balloon.hide();
    phase_ = Phase::Waiting;
    return takePose(now);
}

bool SpeakAct::prepare() {
    if (repetitionIn(segments_) == Repetition::Alone)
        segments_ = parts_.lastStatement.value_or(std::vector<SpeechSegment>{});
    plan_ = planSpeech(segments_, usualStyle(parts_.character));
    return !plan_.steps.empty();
}

/// The present picture serves where it has mouths; else an animation of the Speaking state gives one. Without
/// such an animation the present picture serves all the same.
ActProgress SpeakAct::takePose(Moment now) {
    if (parts_.performer.busy())
        return kActGoesOn;
    const bool inPose = phase_ == Phase::TakingPose || parts_.performer.canSpeak();
    if (!inPose && parts_.performer.perform(Situation::Speaking)) {
        phase_ = Phase::TakingPose;
        return kActGoesOn;
    }
    phase_ = Phase::AwaitingSilence;
    return awaitSilence(now);
}

ActProgress SpeakAct::awaitSilence(Moment now) {
    if (const Wake soundEnd = parts_.sounds.playingUntil(now))
        return {std::nullopt, soundEnd};
    phase_ = Phase::Speaking;
    parts_.narration.begin(std::move(plan_), now);
    std::erase_if(segments_, [](const SpeechSegment& s) { return s.kind == SegmentKind::Bookmark; });
    parts_.lastStatement = std::move(segments_);
    return speakOn(now);
}

ActProgress SpeakAct::speakOn(Moment now) {
    const Wake wake = parts_.narration.advance(now);
    return parts_.narration.speaking() ? ActProgress{std::nullopt, wake} : kActComplete;
}

} // namespace brovin::character
