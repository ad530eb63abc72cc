#include "companion/speech_commands.h"

#include "platform/random.h"
#include "text/strings.h"

namespace brovin::companion {
namespace {

using language::PhraseList;

/// Out of a hundred draws: how many times the character does as it is told.
constexpr std::size_t kDraws = 100;
constexpr std::size_t kObeys = 70;
constexpr std::size_t kRepeats = 80;

} // namespace

void SpeechCommands::cmdSay_Click() {
    const std::size_t draw = drawBelow(needs_.random, kDraws);
    needs_.actor.show();
    const std::string& typed = needs_.speechPage.txtSay.text();
    if (typed.empty())
        askForText();
    else if (draw < kObeys)
        say(typed, typed);
    else
        say(text::replaceAll(needs_.tables.list(PhraseList::SpkSay), "&saytext&", typed), typed);
}

void SpeechCommands::askForText() {
    const ui::Place box = needs_.speechPage.txtSay.place ? needs_.speechPage.txtSay.place() : ui::Place{};
    needs_.actor.gestureAt(box.y, box.x); // crosswise: it never was good at pointing
    say(PhraseList::SpkTypeSomething);
}

void SpeechCommands::cmdDo_Click() {
    if (needs_.speechPage.lstAnims.selected() == ui::ListBox::kNone)
        return;
    const std::size_t draw = drawBelow(needs_.random, kDraws);
    needs_.actor.show();
    if (draw < kObeys)
        needs_.actor.play(needs_.speechPage.lstAnims.selectedText());
    else
        say(PhraseList::SpkDo);
}

void SpeechCommands::cmdRepeat_Click() {
    const std::size_t draw = drawBelow(needs_.random, kDraws);
    needs_.actor.show();
    needs_.actor.stop();
    if (draw < kRepeats)
        needs_.actor.speak("\\Lst\\"); // the service repeats what was said last
    else
        say(PhraseList::SpkRepeat);
}

void SpeechCommands::cmdSpeak_Click() {
    const std::string& reminder = needs_.remindersPage.txtReminder.text();
    if (needs_.actor.character == nullptr) {
        needs_.announcer.agentMsgBox(needs_.phrases.pickPhrase(reminder).value_or(reminder),
                                     platform::box::kInformation, "Reminder", ForceBox::No);
        return;
    }
    needs_.actor.stop();
    const bool wasVisible = needs_.actor.visible();
    if (!wasVisible)
        needs_.actor.show();
    say(reminder, reminder);
    if (!wasVisible)
        needs_.actor.hide();
}

void SpeechCommands::lstAnims_Click() {
    needs_.speechPage.cmdDo.setEnabled(needs_.speechPage.lstAnims.selected() != ui::ListBox::kNone);
    setDefault(needs_.speechPage.cmdDo);
}

void SpeechCommands::txtSay_GotFocus() {
    setDefault(needs_.speechPage.cmdSay);
}

void SpeechCommands::setDefault(ui::Button& button) {
    for (ui::Button* other : {&needs_.speechPage.cmdSay, &needs_.speechPage.cmdDo})
        other->setDefault(other == &button);
}

void SpeechCommands::say(const std::string& list, const std::string& otherwise) {
    needs_.actor.speak(needs_.phrases.pickPhrase(list).value_or(otherwise));
}

void SpeechCommands::say(PhraseList list) {
    if (const auto phrase = needs_.phrases.pickPhrase(list))
        needs_.actor.speak(*phrase);
}

} // namespace brovin::companion
