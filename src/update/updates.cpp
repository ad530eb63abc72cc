#include "update/updates.h"

#include <initializer_list>

namespace brovin::update {

Updates::Updates(const UpdateCheck::Needs& needs, const Machine* machine)
    : page_(needs.programPage), messages_(needs.messages) {
    if (machine != nullptr)
        check_.emplace(needs, *machine).replaced = [this] { replaced(); };
    tellWhoUpdates();
}

void Updates::checkForUpdates() {
    if (check_)
        check_->checkForUpdates();
}

void Updates::cmdUpdate_Click() {
    if (check_)
        check_->cmdUpdate_Click();
}

void Updates::tellWhoUpdates() {
    if (check_)
        return;
    for (ui::Control* control :
         std::initializer_list<ui::Control*>{&page_.chkUpdate, &page_.cmbCheck, &page_.cmdUpdate}) {
        control->setEnabled(false);
        control->setToolTip(messages_.getText("updatesElsewhereTip"));
    }
    page_.cmdUpdate.setCaption(messages_.getText("updatesElsewhere"));
}

} // namespace brovin::update
