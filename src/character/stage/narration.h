#pragma once

#include "character/stage/attention.h"
#include "character/stage/balloon.h"
#include "character/stage/event_list.h"
#include "character/stage/moment.h"
#include "character/stage/performer.h"
#include "character/stage/speech_plan.h"
#include "character/stage/voice.h"
#include "platform/random.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace brovin::character {

/// Speaks one statement at a time: by the voice, whose words the balloon follows and whose sounds the mouth
/// follows, or else at reading pace with a mouth that moves at random.
class Narration final : private VoiceListener {
public:
    struct Needs {
        Voice& voice;
        Balloon& balloon;
        Performer& performer;
        platform::Random& chance;
        EventList& events;
        Attention& attention;
        bool mayUseVoice; ///< false: the character has no synthetic voice
    };
    explicit Narration(const Needs& needs) : needs_(needs) {}

    /// Whether a statement could be heard or read at all.
    [[nodiscard]] bool possible() const { return voiceAvailable() || needs_.balloon.available(); }

    /// Where the voice fails and there is no balloon, it is over at once.
    void begin(SpeechPlan plan, Moment now);
    [[nodiscard]] bool speaking() const { return pace_ != Pace::None; }

    /// Silent at once, with a closed mouth and without a balloon.
    void stop();

    Wake advance(Moment now);

private:
    enum class Pace : std::uint8_t { None, Voice, Reading };

    [[nodiscard]] bool voiceAvailable() const { return needs_.mayUseVoice && needs_.voice.available(); }
    void wordReached(std::size_t offset) override;
    void soundReached(std::string_view ipa) override;
    void bookmarkReached(std::int32_t bookmark) override;
    void speechEnded() override;

    Wake read(Moment now);
    void readStep(const ReadingStep& step);
    Wake moveMouth(Moment now);
    void finish(Moment now);

    Needs needs_;
    SpeechPlan plan_;
    Pace pace_ = Pace::None;
    std::size_t next_ = 0;   ///< the step to come
    bool voiceDone_ = false; ///< waits for the next `advance`
    Moment due_;             ///< reading: when the next step begins
    Moment wordEnd_;         ///< reading: the mouth is closed from here to the next word
    Moment mouthDue_;
};

} // namespace brovin::character
