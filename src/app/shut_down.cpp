#include "app/shut_down.h"

namespace brovin::app {

namespace box = platform::box;
namespace setting = settings::setting;
using language::Message;

void ShutDown::cmdExit_Click() {
    ui::FrmOptions& form = needs_.form;
    form.cmdExit.setPicture("close");
    if (form.chkAgent.checked() && needs_.actor.character != nullptr)
        needs_.settings.write(setting::kAgentShow, needs_.actor.visible() ? "True" : "False");
    const auto& messages = needs_.speech.messages;
    const auto answer = needs_.speech.announcer.agentMsgBox(
        messages.getMessage(Message::ConfirmExit, {needs_.speech.phrases.getDude()}),
        box::kYesNo | box::kExclamation, messages.getMessage(Message::ConfirmExitTitle),
        companion::ForceBox::Yes);
    if (answer != platform::Button::Yes)
        return;
    if (needs_.cleaner.scan.busy()) {
        offerToStopScan(messages.getText("stopScan"));
        return;
    }
    if (form.chkAgent.checked() && needs_.actor.character != nullptr) {
        needs_.actor.character->requests.stopAll();
        needs_.actor.hide();
    }
    Form_Unload();
}

void ShutDown::closing() {
    if (needs_.cleaner.scan.busy())
        offerToStopScan(needs_.speech.messages.getText("closeDuringScan"));
}

void ShutDown::offerToStopScan(const std::string& question) {
    const auto answer = needs_.speech.announcer.agentMsgBox(
        question, box::kYesNo | box::kQuestion, needs_.speech.messages.getMessage(Message::ConfirmExitTitle),
        companion::ForceBox::Yes);
    if (answer == platform::Button::Yes)
        needs_.cleaner.scanRun.cancel();
}

void ShutDown::Form_Unload() {
    if (needs_.cleaner.scan.busy())
        return;
    needs_.form.exitConfirmed = true;
    needs_.form.window.setVisible(false);
    needs_.tray.remove();
    leaveCharacter();
    needs_.shell.endProgram();
}

void ShutDown::leaveCharacter() {
    if (needs_.actor.character == nullptr)
        return;
    const platform::Area place = needs_.actor.character->place.area();
    needs_.settings.write(setting::kAgentX, std::to_string(place.left));
    needs_.settings.write(setting::kAgentY, std::to_string(place.top));
    needs_.actor.character = nullptr;
    needs_.characters.unload(needs_.actor.name);
}

} // namespace brovin::app
