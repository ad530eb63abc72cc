#include "companion/announcer.h"

#include "text/strings.h"

#include <utility>

namespace brovin::companion {
namespace {

using language::PhraseList;
using platform::BoxStyle;
using platform::Button;
namespace box = platform::box;

bool has(BoxStyle style, BoxStyle bits) {
    return (style & bits) == bits;
}

} // namespace

std::string withoutSpeechTags(std::string_view text) {
    const auto pieces = text::split(text, '\\');
    std::string shown;
    for (std::size_t i = text.starts_with('\\') ? 2 : 0; i < pieces.size(); i += 2)
        shown += pieces[i];
    return shown;
}

Button Announcer::agentMsgBox(const std::string& text, BoxStyle style, const std::string& title,
                              ForceBox force) {
    if (needs_.actor.quiet)
        return tellInQuiet({text, style, title, force});
    const bool characterIsOn = needs_.characterPage.chkAgent.checked();
    const bool wasVisible = needs_.actor.visible();
    // A character that could not be loaded must not swallow the message.
    const bool spoken = characterIsOn && perform(text, style, force);
    Button answer = Button::None;
    if (force == ForceBox::Yes)
        answer = needs_.dialogs.messageBox(withoutSpeechTags(text), style, title);
    else if (!spoken)
        needs_.dialogs.messageBox(withoutSpeechTags(text), style, title);
    if (characterIsOn && !wasVisible)
        needs_.actor.hide();
    return answer;
}

Button Announcer::tellInQuiet(const Announcement& message) {
    if (message.force == ForceBox::No && leave && leave(message))
        return Button::None;
    const Button answer =
        needs_.dialogs.messageBox(withoutSpeechTags(message.text), message.style, message.title);
    return message.force == ForceBox::Yes ? answer : Button::None;
}

bool Announcer::perform(const std::string& text, BoxStyle style, ForceBox force) {
    needs_.actor.prepare();
    // Each test stands by itself: an exclamation has the bits of the critical and the question style too, and
    // plays all three.
    const bool only = force == ForceBox::No;
    if (has(style, box::kExclamation) && only)
        playFrom(PhraseList::AniExclamation);
    if (has(style, box::kInformation) && only)
        playFrom(PhraseList::AniInformation);
    if (has(style, box::kCritical) && only)
        playFrom(PhraseList::AniCritical);
    if (has(style, box::kQuestion))
        playFrom(PhraseList::AniQuestion);

    holdAttention();
    const bool spoken = needs_.actor.speak(text);
    leadBack();
    return spoken;
}

void Announcer::holdAttention() const {
    if (needs_.phrases.pendingReturnAnimation != "GetAttentionReturn" || needs_.actor.name != "Merlin")
        return;
    needs_.actor.play("GetAttentionContinued");
    needs_.actor.play("GetAttentionContinued");
}

void Announcer::leadBack() {
    std::string& animation = needs_.phrases.pendingReturnAnimation;
    if (!animation.empty())
        needs_.actor.play(std::exchange(animation, {}));
}

void Announcer::playFrom(PhraseList animations) {
    if (const auto animation = needs_.phrases.pickPhrase(animations))
        needs_.actor.play(*animation);
}

} // namespace brovin::companion
