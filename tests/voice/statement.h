#pragma once

#include "character/stage/speech_plan.h"
#include "character/stage/speech_tags.h"
#include "voice/voice_choice.h"

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

namespace brovin::voice {

/// What a character would say for a text with speech tags.
inline std::vector<character::SpokenRun> runsOf(std::string_view text) {
    return character::planSpeech(character::parseSpeech(text), {}).runs;
}

/// A statement as the synthesizer makes it, without any device.
struct Synthesis {
    std::vector<std::int16_t> samples;
    std::vector<SpeechEvent> events;
    bool over = false;

    /// First and last sample that can be heard.
    [[nodiscard]] std::int64_t firstSound() const {
        return std::ranges::find_if(samples, audible) - samples.begin();
    }
    [[nodiscard]] std::int64_t lastSound() const {
        return samples.rend() - std::find_if(samples.rbegin(), samples.rend(), audible);
    }
    [[nodiscard]] static bool audible(std::int16_t sample) { return std::abs(sample) > 150; }
};

inline Synthesis synthesise(const VoiceChoice& voice, const std::vector<character::SpokenRun>& runs) {
    const auto engine = SpeechEngine::shared();
    SpeechJob job = voice.jobFor(runs);
    const auto stream = job.stream = std::make_shared<SpeechStream>();
    engine->speak(std::move(job));
    Synthesis result;
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds{60};
    while (!stream->over() && std::chrono::steady_clock::now() < deadline) {
        std::vector<std::int16_t> samples(22'050);
        const SpeechStream::Taken taken = stream->take(samples, result.events);
        result.samples.insert(result.samples.end(), samples.begin(),
                              samples.begin() + static_cast<std::ptrdiff_t>(taken.samples));
        if (taken.roomAgain)
            engine->wake();
        if (taken.samples == 0)
            std::this_thread::sleep_for(std::chrono::milliseconds{1});
    }
    result.over = stream->over();
    return result;
}

inline Synthesis synthesise(const VoiceChoice& voice, std::string_view text) {
    return synthesise(voice, runsOf(text));
}

} // namespace brovin::voice
