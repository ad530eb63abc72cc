#pragma once

#include "character/stage/act.h"

#include <cstdint>
#include <vector>

namespace brovin::character {

/// Takes a pose with a mouth, waits for sounds to end, and speaks.
class SpeakAct final : public Act {
public:
    /// `segments` either ask for the last statement alone, or not at all.
    SpeakAct(const StageParts& parts, std::vector<SpeechSegment> segments)
        : parts_(parts), segments_(std::move(segments)) {}

    ActProgress advance(Moment now) override;
    void stop() override;

private:
    enum class Phase : std::uint8_t { NotBegun, Waiting, TakingPose, AwaitingSilence, Speaking };

    ActProgress begin(Moment now);
    /// False: there is nothing to say.
    bool prepare();
    ActProgress takePose(Moment now);
    ActProgress awaitSilence(Moment now);
    ActProgress speakOn(Moment now);

    StageParts parts_;
    std::vector<SpeechSegment> segments_;
    SpeechPlan plan_;
    Phase phase_ = Phase::NotBegun;
};

} // namespace brovin::character
