#include "voice/heard.h"

#include "character/stage/mouth_shapes.h"
#include "character/stage/stage.h"
#include "stage/stage_world.h"

#include <QTimer>

#include <cmath>
#include <memory>
#include <vector>

namespace brovin::voice {
namespace {

using character::Mouth;

struct ShownMouth {
    double ms = 0; ///< since the voice was first heard
    Mouth mouth = Mouth::Closed;
};

/// The mouths of a statement, one for each change.
struct Mouths : std::vector<ShownMouth> {
    void add(double ms, Mouth mouth) {
        if (mouth != (empty() ? Mouth::Closed : back().mouth))
            push_back({ms, mouth});
    }
};

/// Writes down the mouths of the pictures that are shown, and when.
struct MouthSurface final : character::Surface {
    std::vector<std::pair<Clock::time_point, Mouth>> lines;
    bool speaking = false;

    void showFrame(const character::Frame& /*frame*/, const character::MouthOverlay* mouth) override {
        if (speaking && mouth != nullptr)
            lines.emplace_back(Clock::now(), mouth->mouth);
    }
    void setPlace(character::Place /*place*/) override {}
    void setShown(character::Shown /*shown*/) override {}
};

/// A stage on the machine's clock.
class LiveStage {
public:
    LiveStage(const std::shared_ptr<const character::CharacterData>& data, MouthSurface& surface,
              EspeakVoice& voice)
        : stage_(data,
                 {surface, world_.balloon, world_.sound, voice, world_.chance, [this] { timer_.start(0); }}) {
        timer_.setSingleShot(true);
        QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] {
            const auto now = std::chrono::time_point_cast<character::Milliseconds>(Clock::now());
            if (const character::Wake wake = stage_.advance(now))
                timer_.start(std::max(character::Milliseconds{0}, *wake - now));
        });
    }
    character::Stage* operator->() { return &stage_; }

private:
    character::StageWorld world_;
    QTimer timer_;
    character::Stage stage_;
};

/// By what the synthesizer says of the sounds.
Mouths expectedMouths(const Synthesis& made) {
    Mouths mouths;
    for (const SpeechEvent& event : made.events)
        if (const auto* const sound = std::get_if<SoundBegins>(&event.what))
            if (const auto mouth = character::mouthFor(sound->ipa))
                mouths.add(static_cast<double>(event.sample - made.firstSound()) / kSpeechRate * 1000,
                           *mouth);
    return mouths;
}

TEST_F(HeardTest, movesTheMouthWithItsSounds) {
    constexpr const char* kText = "Good evening. I am your companion, and I have brought you some news.";
    character::TestCharacter talker;
    talker.animation("RestPose",
                     {{.ms = 0,
                       .mouths = {Mouth::Closed, Mouth::OpenWide1, Mouth::OpenWide2, Mouth::OpenWide3,
                                  Mouth::OpenWide4, Mouth::OpenMedium, Mouth::OpenNarrow}}});
    MouthSurface surface;
    LiveStage stage(std::make_shared<const character::CharacterData>(talker.data), surface, voice);
    const Mouths expected = expectedMouths(synthesise(voice.choice(), kText));
    stage->show(character::Manner::Fast);
    pass(std::chrono::milliseconds{50});
    surface.speaking = true;
    Recorder recorder;
    const character::Asked asked = stage->speak(kText);
    ASSERT_TRUE(asked);
    ASSERT_TRUE(passUntil([&] { return (*asked)->status == character::RequestStatus::Complete; },
                          std::chrono::seconds{20}));
    ASSERT_TRUE(recorder.heardAnything());
    Mouths shown;
    for (const auto& [at, mouth] : surface.lines)
        shown.add(inMs(at - recorder.heardAt()), mouth);
    ASSERT_EQ(shown.size(), expected.size());
    ASSERT_GT(shown.size(), 30U);
    double worst = 0;
    double sum = 0;
    for (std::size_t i = 0; i < shown.size(); ++i) {
        EXPECT_EQ(shown[i].mouth, expected[i].mouth) << i;
        worst = std::max(worst, std::abs(shown[i].ms - expected[i].ms));
        sum += shown[i].ms - expected[i].ms;
    }
    EXPECT_LT(worst, 120) << "no mouth is seen far from its sound";
    EXPECT_LT(std::abs(sum / static_cast<double>(shown.size())), 80);
}

} // namespace
} // namespace brovin::voice
