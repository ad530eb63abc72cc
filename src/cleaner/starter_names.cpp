#include "cleaner/starter_names.h"

#include "cleaner/known_names.h"

#include <algorithm>
#include <string>
#include <vector>

namespace brovin::cleaner {
namespace {

using Suggestions = std::deque<ui::FrmStarter::Suggestion>;

bool isWanted(const ui::FrmStarter::Suggestion& suggestion) {
    return suggestion.chkName.enabled() && suggestion.chkName.checked();
}

} // namespace

StarterNames::StarterNames(const Needs& needs) : needs_(needs), form_(needs.nastyPage.frmStarter) {
    for (const KnownName& known : knownNames())
        if (known.origin != Origin::Trash) {
            Suggestions& group = known.origin == Origin::Safe ? form_.safe : form_.caution;
            group.emplace_back(form_, std::string(known.name)).chkName.click = [this] { enableAdding(); };
        }
    form_.cmdAddThese.setDefault(true);
    form_.cmdAddThese.click = [this] { cmdAddThese_Click(); };
    form_.cmdClose.click = [this] { form_.window.setVisible(false); };
    form_.window.close = [this] { form_.window.setVisible(false); };
}

void StarterNames::showTexts() {
    const auto& messages = needs_.speech.messages;
    form_.window.setCaption(messages.getText("starterTitle"));
    form_.lblIntro.setCaption(messages.getText("starterIntro"));
    form_.lblSafe.setCaption(messages.getText("starterSafe"));
    form_.lblCaution.setCaption(messages.getText("starterCaution"));
    form_.lblTrash.setCaption(messages.getText("starterNoTrash"));
    form_.cmdAddThese.setCaption(messages.getText("starterAdd"));
    form_.cmdClose.setCaption(messages.getText("close"));
    for (Suggestions* group : {&form_.safe, &form_.caution})
        for (ui::FrmStarter::Suggestion& suggestion : *group)
            suggestion.lblWhy.setCaption(messages.getText(knownName(suggestion.chkName.caption())->told));
}

void StarterNames::cmdStarter_Click() {
    showTexts();
    const auto& listed = needs_.nastyPage.lstFiles.items();
    for (Suggestions* group : {&form_.safe, &form_.caution})
        for (ui::FrmStarter::Suggestion& suggestion : *group) {
            const bool there = std::ranges::find(listed, suggestion.chkName.caption(),
                                                 &ui::ListControl::Item::text) != listed.end();
            suggestion.chkName.setEnabled(!there);
            suggestion.chkName.setValue(there || group == &form_.safe ? ui::CheckBox::kOn
                                                                      : ui::CheckBox::kOff);
        }
    form_.window.setVisible(true);
}

void StarterNames::enableAdding() {
    form_.cmdAddThese.setEnabled(std::ranges::any_of(form_.safe, isWanted) ||
                                 std::ranges::any_of(form_.caution, isWanted));
}

void StarterNames::cmdAddThese_Click() {
    if (needs_.scan.busy())
        return;
    std::vector<std::string> names;
    for (const Suggestions* group : {&form_.safe, &form_.caution})
        for (const ui::FrmStarter::Suggestion& suggestion : *group)
            if (isWanted(suggestion))
                names.push_back(suggestion.chkName.caption());
    needs_.nastyFiles.add(names);
    form_.window.setVisible(false);
}

} // namespace brovin::cleaner
