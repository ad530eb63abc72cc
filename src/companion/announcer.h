#pragma once

#include "companion/actor.h"
#include "companion/phrase_engine.h"
#include "platform/dialogs.h"
#include "ui/pages/character_page.h"

#include <functional>
#include <string>
#include <string_view>

namespace brovin::companion {

/// Whether a message box is shown in every case, because the answer is needed, or only when no character
/// can speak.
enum class ForceBox : bool { No, Yes };

/// A message as `agentMsgBox` takes it.
struct Announcement {
    std::string text;
    platform::BoxStyle style;
    std::string title;
    ForceBox force;
};

/// What a message box shows of a spoken text: the speech tags between backslashes are left out.
[[nodiscard]] std::string withoutSpeechTags(std::string_view text);

/// Brings every message to the user: the character speaks it, or a message box shows it, or both.
class Announcer {
public:
    struct Needs {
        const ui::CharacterPage& characterPage;
        Actor& actor;
        PhraseEngine& phrases;
        platform::Dialogs& dialogs;
    };
    explicit Announcer(const Needs& needs) : needs_(needs) {}

    /// Says the text, with an animation that goes with the style. The button of the message box when `force`
    /// is given, else None.
    platform::Button agentMsgBox(const std::string& text, platform::BoxStyle style, const std::string& title,
                                 ForceBox force);

    /// While it is quiet, what needs no answer is offered here first. True: it is told later. Else it comes
    /// in a box, as everything does that cannot wait.
    std::function<bool(const Announcement&)> leave;

    /// What goes with the animation that was picked last, before and after the speech: Merlin holds the
    /// attention that he got, and whoever went into a pose comes out of it.
    void holdAttention() const;
    void leadBack();

    /// What is being told is done to its end before anything else is told.
    void hearOut() const { needs_.actor.hearOut(); }

private:
    platform::Button tellInQuiet(const Announcement& message);
    /// False: there is nobody to say the text.
    bool perform(const std::string& text, platform::BoxStyle style, ForceBox force);
    void playFrom(language::PhraseList animations);

    Needs needs_;
};

} // namespace brovin::companion
