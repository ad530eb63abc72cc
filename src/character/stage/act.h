#pragma once

#include "character/character_data.h"
#include "character/stage/balloon.h"
#include "character/stage/moment.h"
#include "character/stage/narration.h"
#include "character/stage/performer.h"
#include "character/stage/presence.h"
#include "character/stage/request.h"
#include "character/stage/situation.h"
#include "character/stage/sound_effects.h"
#include "character/stage/speech_tags.h"
#include "platform/random.h"

#include <optional>
#include <vector>

namespace brovin::character {

/// What acts are made with: the parts of one character's stage.
struct StageParts {
    const CharacterData& character;
    const SituationTable& situations;
    platform::Random& chance;
    Presence& presence;
    Performer& performer;
    SoundEffects& sounds;
    Balloon& balloon;
    Narration& narration;
    /// What was said last, without its bookmarks; nullopt: nothing yet.
    std::optional<std::vector<SpeechSegment>>& lastStatement;
};

struct ActProgress {
    std::optional<RequestError> ended; ///< None: the act is complete
    Wake wake;                         ///< beside the performer's own
};

inline const ActProgress kActGoesOn{};
inline const ActProgress kActComplete{RequestError::None, std::nullopt};

/// The carrying out of one request.
class Act {
public:
    virtual ~Act() = default;

    /// The first call begins the act.
    virtual ActProgress advance(Moment now) = 0;

    /// Ends the act before its time. It may not have begun. Nothing is called afterwards.
    virtual void stop() = 0;
};

} // namespace brovin::character
