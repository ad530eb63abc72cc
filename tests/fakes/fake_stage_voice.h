#pragma once

#include "character/stage/voice.h"
#include "fakes/fake_stage_log.h"

#include <string>
#include <vector>

namespace brovin::fakes {

/// Writes down what is to be said. The test plays the voice through the listener, which is null when nothing
/// is being said.
class FakeStageVoice final : public character::Voice {
public:
    explicit FakeStageVoice(StageLog& log) : log_(log) {}

    bool isAvailable = true;
    bool refuses = false;
    std::vector<character::SpokenRun> runs; ///< of the last statement
    character::VoiceListener* listener = nullptr;

    [[nodiscard]] bool available() const override { return isAvailable; }
    [[nodiscard]] bool say(const std::vector<character::SpokenRun>& statement,
                           character::VoiceListener& hears) override {
        if (refuses)
            return false;
        runs = statement;
        listener = &hears;
        std::string text;
        for (const character::SpokenRun& run : runs)
            text += run.text;
        log_.add("say " + text);
        return true;
    }
    void silence() override {
        log_.add("silence");
        listener = nullptr;
    }

    /// All is said.
    void end() {
        character::VoiceListener* const hears = listener;
        listener = nullptr;
        hears->speechEnded();
    }

private:
    StageLog& log_;
};

} // namespace brovin::fakes
