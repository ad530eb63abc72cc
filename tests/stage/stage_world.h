#pragma once

#include "character/stage/stage.h"
#include "fakes/fake_stage.h"
#include "stage/stage_character.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace brovin::character {

using Lines = std::vector<std::string>;

/// A character with the usual animations: it speaks in its resting pose, waves with a picture that can speak,
/// reads in one that must be led back from, and searches without end.
[[nodiscard]] TestCharacter usualCharacter();

/// A stage and the desktop around it, in memory. Everything that happens is in one log.
class StageWorld {
public:
    explicit StageWorld(const TestCharacter& character = usualCharacter());

    std::shared_ptr<const CharacterData> data;
    fakes::StageLog log;
    fakes::FakeStageChance chance;
    fakes::FakeStageSurface surface;
    fakes::FakeStageSound sound{log};
    fakes::FakeStageVoice voice{log};
    fakes::FakeStageBalloon balloon{log};
    int calls = 0;      ///< of `advance`
    bool asked = false; ///< the stage wants to be called
    Wake wake;          ///< what `advance` has said last
    TimeOfYear today{7, 12};
    bool logsEvents = true; ///< "show 4", "balloon shown" and so on
    std::unique_ptr<Stage> stage;

    /// Lets this time pass, with every call that the stage asks for, and no other.
    Lines pass(Milliseconds time);
    /// What happens without any time passing.
    Lines settle() { return pass(Milliseconds{0}); }

    /// On the screen in the resting pose, with an empty log.
    void appear();

private:
    void call();
    void tell(const Event& event);
};

/// A world whose character is on the screen in the resting pose.
struct ShownWorld : StageWorld {
    explicit ShownWorld(const TestCharacter& character = usualCharacter()) : StageWorld(character) {
        appear();
    }
};

/// The same without events in the log.
struct QuietWorld : ShownWorld {
    explicit QuietWorld(const TestCharacter& character = usualCharacter()) : ShownWorld(character) {
        logsEvents = false;
    }
};

/// "complete", "failed 8004200A" and the like.
[[nodiscard]] std::string outcomeOf(const RequestHandle& request);

/// Without the times.
[[nodiscard]] Lines untimed(const Lines& lines);

} // namespace brovin::character
