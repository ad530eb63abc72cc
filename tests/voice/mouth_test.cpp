#include "voice/heard.h"

#include "character/stage/mouth_shapes.h"
#include "character/stage/stage.h"
#include "stage/stage_world.h"

#include <QTimer>

#include <cmath>
#include <cstdio>
#include <memory>
#include <optional>

namespace brovin::voice {
namespace {

using character::Mouth;

struct ShownMouth {
    double ms = 0; ///< since the voice was first heard
    Mouth mouth = Mouth::Closed;
};

/// Writes down the mouths of the pictures that are shown, and when.
struct MouthSurface final : character::Surface {
    struct Line {
        Clock::time_point at;
        Mouth mouth;
    };
    std::vector<Line> lines;
    bool speaking = false;

    void showFrame(const character::Frame& /*frame*/, const character::MouthOverlay* mouth) override {
        if (speaking && mouth != nullptr)
            lines.push_back({Clock::now(), mouth->mouth});
    }
    void setPlace(character::Place /*place*/) override {}
    void setShown(character::Shown /*shown*/) override {}
};

/// A stage on the machine's clock.
class LiveStage {
public:
    LiveStage(const std::shared_ptr<const character::CharacterData>& data, MouthSurface& surface,
              EspeakVoice& voice)
        : world_(), stage_(data, {surface, world_.balloon, world_.sound, voice, world_.chance,
                                  [this] { timer_.start(0); }}) {
        timer_.setSingleShot(true);
        QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { advance(); });
    }
    character::Stage* operator->() { return &stage_; }

private:
    void advance() {
        using character::Milliseconds;
        const character::Moment now = std::chrono::time_point_cast<Milliseconds>(Clock::now());
        const character::Wake wake = stage_.advance(now);
        if (wake)
            timer_.start(std::max(Milliseconds{0}, *wake - now));
    }

    character::StageWorld world_;
    QTimer timer_;
    character::Stage stage_;
};

character::TestCharacter talker() {
    character::TestCharacter talker;
    talker.animation("RestPose",
                     {{.ms = 0,
                       .mouths = {Mouth::Closed, Mouth::OpenWide1, Mouth::OpenWide2, Mouth::OpenWide3,
                                  Mouth::OpenWide4, Mouth::OpenMedium, Mouth::OpenNarrow}}});
    talker.state("Speaking", {"RestPose"});
    return talker;
}

/// Mouths by what the synthesizer says of the sound, one line for each change.
std::vector<ShownMouth> expectedMouths(const Synthesis& made) {
    std::vector<ShownMouth> mouths;
    for (const SpeechEvent& event : made.events)
        if (const auto* const sound = std::get_if<SoundBegins>(&event.what))
            if (const auto mouth = character::mouthFor(sound->ipa);
                mouth && (mouths.empty() ? *mouth != Mouth::Closed : mouths.back().mouth != *mouth))
                mouths.push_back(
                    {static_cast<double>(event.sample - made.firstSound()) / kSpeechRate * 1000, *mouth});
    return mouths;
}

/// Mouths as they were shown, against the time at which the recording began to sound.
std::vector<ShownMouth> shownMouths(const MouthSurface& surface, Clock::time_point heardAt) {
    std::vector<ShownMouth> mouths;
    for (const MouthSurface::Line& line : surface.lines)
        if (mouths.empty() ? line.mouth != Mouth::Closed : mouths.back().mouth != line.mouth)
            mouths.push_back({inMs(line.at - heardAt), line.mouth});
    return mouths;
}

TEST_F(HeardTest, movesTheMouthWithItsSounds) {
    constexpr const char* kText = "Good evening. I am your companion, and I have brought you some news.";
    MouthSurface surface;
    LiveStage stage(std::make_shared<const character::CharacterData>(talker().data), surface, voice);
    const std::vector<ShownMouth> expected = expectedMouths(synthesise(voice, kText));
    stage->show(character::Manner::Fast);
    pass(std::chrono::milliseconds{50});
    surface.speaking = true;
    Recorder recorder;
    const character::Asked asked = stage->speak(kText);
    ASSERT_TRUE(asked);
    ASSERT_TRUE(passUntil([&] { return (*asked)->status == character::RequestStatus::Complete; },
                          std::chrono::seconds{20}));
    ASSERT_TRUE(recorder.heardAnything());
    const std::vector<ShownMouth> shown = shownMouths(surface, recorder.heardAt());
    ASSERT_EQ(shown.size(), expected.size());
    ASSERT_GT(shown.size(), 30U);
    double worst = 0;
    double sum = 0;
    for (std::size_t i = 0; i < shown.size(); ++i) {
        std::printf("mouth %d: sound at %4.0f ms, shown at %4.0f ms\n", static_cast<int>(expected[i].mouth),
                    expected[i].ms, shown[i].ms);
        EXPECT_EQ(shown[i].mouth, expected[i].mouth) << i;
        worst = std::max(worst, std::abs(shown[i].ms - expected[i].ms));
        sum += shown[i].ms - expected[i].ms;
    }
    EXPECT_LT(worst, 120) << "no mouth is seen far from its sound";
    EXPECT_LT(std::abs(sum / static_cast<double>(shown.size())), 80);
    RecordProperty("worstMs", std::to_string(worst));
    RecordProperty("meanMs", std::to_string(sum / static_cast<double>(shown.size())));
}

} // namespace
} // namespace brovin::voice
