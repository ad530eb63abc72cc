#include "character/stage/balloon_pacing.h"
#include "character/stage/speech_plan.h"
#include "character/stage/speech_tags.h"
#include "require.h"
#include "text/utf8.h"
#include "voice/utterance.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace {

using namespace brovin::character;
using brovin::fuzz::require;

void checkBalloon(const SpeechPlan& plan) {
    constexpr int kWidth = 24;
    constexpr int kLines = 3;
    const BalloonPacing pacing(plan.shown, {}, {kWidth, kLines},
                               [](std::string_view text) { return static_cast<int>(text.size()); });
    std::size_t reached = 0;
    for (const ReadingStep& step : plan.steps) {
        require(step.kind != ReadingStep::Kind::Word ||
                (step.shownEnd >= reached && step.shownEnd <= plan.shown.size()));
        reached = step.kind == ReadingStep::Kind::Word ? step.shownEnd : reached;
    }
    for (const std::size_t at : {std::size_t{0}, reached / 2, reached}) {
        const BalloonPage page = pacing.page(at);
        require(page.height >= 1 && page.lines.size() <= static_cast<std::size_t>(page.height));
    }
}

} // namespace

/// What a character is told to say, from the tags to the balloon and to what the synthesizer is given.
// NOLINTNEXTLINE(readability-identifier-naming): the name that libFuzzer calls
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const SpeechPlan plan = planSpeech(parseSpeech(text), {});
    std::size_t spoken = 0;
    for (const SpokenRun& run : plan.runs)
        spoken += run.text.size();
    checkBalloon(plan);
    for (const auto& utterance : brovin::voice::makeUtterances(plan.runs, {})) {
        require(brovin::text::isUtf8(utterance.text));
        for (const std::size_t origin : utterance.origins)
            require(origin <= spoken);
    }
    return 0;
}
