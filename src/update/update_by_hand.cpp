#include "update/update_by_hand.h"

#include "update/offer_text.h"

#include <utility>

namespace brovin::update {

using language::Message;

UpdateByHand::UpdateByHand(const Needs& needs, const ProgramOffer& offer, std::string page)
    : needs_(needs), page_(std::move(page)) {
    ui::FrmDownload& form = needs_.form;
    const language::MessageTable& messages = needs_.messages;
    form.window.setCaption(messages.getMessage(Message::NewVersionTitle) + sizeText(messages, offer));
    form.lblText.setCaption(messages.getText("updateByHand"));
    form.txtUpdates.setCaption(messages.getMessage(Message::ChangesBelow));
    form.txtUpdates.setText(changesText(offer.changes));
    form.ProgressBar1.setVisible(false);
    form.cmdStart.setCaption(messages.getText("updateOpenPage"));
    form.cmdStart.setDefault(true);
    form.cmdStart.click = [this] { cmdStart_Click(); };
    form.cmdCancel.setCaption(messages.getMessage(Message::CancelButton));
    form.cmdCancel.click = [&form] { form.window.setVisible(false); };
    form.window.close = form.cmdCancel.click;
}

void UpdateByHand::cmdStart_Click() {
    pageOpened_ = needs_.shell.openDocument(page_);
    if (pageOpened_)
        needs_.form.window.setVisible(false);
    else
        needs_.form.lblText.setCaption(needs_.messages.getText("linkNotOpened", {page_}));
}

} // namespace brovin::update
