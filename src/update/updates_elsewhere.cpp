#include "update/updates_elsewhere.h"

#include <initializer_list>

namespace brovin::update {

void leaveToOthers(ui::ProgramPage& page, const language::MessageTable& messages) {
    for (ui::Control* control :
         std::initializer_list<ui::Control*>{&page.chkUpdate, &page.cmbCheck, &page.cmdUpdate}) {
        control->setEnabled(false);
        control->setToolTip(messages.getText("updatesElsewhereTip"));
    }
    page.cmdUpdate.setCaption(messages.getText("updatesElsewhere"));
}

} // namespace brovin::update
