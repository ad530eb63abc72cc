#include "cleaner/keep_list.h"

#include "cleaner/keep_entry.h"
#include "cleaner/stored_list.h"

#include <algorithm>

namespace brovin::cleaner {

void KeepList::load() {
    loadNames(needs_, needs_.nastyPage.lstKeep, kKeepSection);
    enableRemoving();
}

void KeepList::save() {
    saveNames(needs_, needs_.nastyPage.lstKeep, kKeepSection);
}

bool KeepList::has(const std::string& entry) const {
    const auto& items = needs_.nastyPage.lstKeep.items();
    return std::any_of(items.begin(), items.end(), [&](const auto& item) { return item.text == entry; });
}

bool KeepList::add(const std::string& entry) {
    const std::string kept = keepEntry(needs_.letters.lowerCase(entry));
    if (kept.empty() || needs_.scan.busy() || needs_.nastyPage.lstKeep.items().size() == kMostEntries)
        return false;
    if (has(kept))
        return true;
    needs_.nastyPage.lstKeep.add({kept, 0});
    save();
    return true;
}

void KeepList::addUnstored(const std::string& entry) {
    needs_.nastyPage.lstKeep.add({needs_.letters.lowerCase(entry), 0});
}

void KeepList::cmdAddKeep_Click() {
    const auto& messages = needs_.speech.messages;
    std::string typed;
    while (!needs_.scan.busy()) {
        const auto answer =
            needs_.dialogs.inputBox(messages.getText("keepAsk"), messages.getText("keepAskTitle"), typed);
        if (!answer || answer->empty() || add(*answer))
            return;
        typed = *answer;
        needs_.dialogs.messageBox(messages.getText("keepNotUsable"), platform::box::kExclamation,
                                  messages.getText("keepAskTitle"));
    }
}

void KeepList::cmdRemoveKeep_Click() {
    ui::ListBox& list = needs_.nastyPage.lstKeep;
    if (needs_.scan.busy() || list.selected() == ui::ListControl::kNone)
        return;
    const auto& messages = needs_.speech.messages;
    const auto answer =
        needs_.speech.announcer.agentMsgBox(messages.getText("keepRemove", {list.selectedText()}),
                                            platform::box::kYesNo | platform::box::kQuestion,
                                            messages.getText("keepRemoveTitle"), companion::ForceBox::Yes);
    if (answer != platform::Button::Yes)
        return;
    list.remove(list.selected());
    save();
    enableRemoving();
}

void KeepList::lstKeep_Click() {
    if (needs_.scan.busy())
        return;
    enableRemoving();
    needs_.nastyPage.lstKeep.setToolTip(needs_.nastyPage.lstKeep.selectedText());
}

void KeepList::enableRemoving() {
    needs_.nastyPage.cmdRemoveKeep.setEnabled(needs_.nastyPage.lstKeep.selected() != ui::ListControl::kNone);
}

} // namespace brovin::cleaner
