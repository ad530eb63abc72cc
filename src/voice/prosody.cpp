#include "voice/prosody.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <iterator>

namespace brovin::voice {
namespace {

constexpr int kSlowest = 80;
constexpr int kFastest = 600;
constexpr int kLoudest = 200;
constexpr int kStyleLoudest = 65535;
constexpr int kStrong = 3;
constexpr double kReducedLoudness = 0.65;

/// Without melody a voice stays at the foot of its range and sounds deeper by this factor.
constexpr double kMonotoneDrop = 0.87;

/// What the synthesizer's pitch does to the pitch that is heard, measured over all variants: the factor at
/// these points, and straight lines between them.
constexpr struct {
    double pitch;
    double factor;
} kPitches[] = {{0, 0.65}, {25, 0.80}, {50, 1.0}, {75, 1.28}, {99, 1.65}};

int pitchFor(double factor) {
    if (factor <= kPitches[0].factor)
        return 0;
    for (std::size_t i = 1; i < std::size(kPitches); ++i) {
        const auto& low = kPitches[i - 1];
        const auto& high = kPitches[i];
        if (factor < high.factor)
            return static_cast<int>(std::lround(low.pitch + (factor - low.factor) * (high.pitch - low.pitch) /
                                                                (high.factor - low.factor)));
    }
    return 99;
}

int volumeFor(const character::VoiceStyle& style, const Timbre& timbre) {
    if (style.volume <= 0)
        return 0;
    double volume = static_cast<double>(style.volume) * timbre.loudness / kStyleLoudest;
    if (style.emphasis == character::Emphasis::Reduced)
        volume *= kReducedLoudness;
    return std::clamp(static_cast<int>(std::lround(volume)), 1, kLoudest);
}

} // namespace

Prosody prosodyOf(const character::VoiceStyle& style, const Timbre& timbre) {
    Prosody prosody;
    const double rate = style.wordsPerMinute.value_or(timbre.wordsPerMinute) * (style.speedPercent / 100.0);
    prosody.rate = static_cast<int>(std::clamp(std::round(rate), 1.0 * kSlowest, 1.0 * kFastest));
    const bool flat = style.tone == character::Tone::Monotone || !style.melody || timbre.range == 0;
    prosody.range = flat ? 0 : timbre.range;
    const double hertz = style.pitchHertz.value_or(timbre.ownHertz) * (style.pitchPercent / 100.0);
    prosody.pitch = pitchFor(hertz / timbre.middleHertz / (flat ? kMonotoneDrop : 1.0));
    prosody.volume = volumeFor(style, timbre);
    prosody.emphasis = style.emphasis == character::Emphasis::Strong ? kStrong : 0;
    prosody.spelled = style.spelled;
    return prosody;
}

} // namespace brovin::voice
