#include "cleaner/nasty_file_list.h"

#include "cleaner/known_names.h"
#include "cleaner/stored_list.h"
#include "text/utf8.h"

namespace brovin::cleaner {
namespace {

namespace box = platform::box;
using companion::ForceBox;
using language::Message;

constexpr std::string_view kForbidden = "\"\\/:*?<>|";
constexpr std::size_t kLongestName = 32;
constexpr std::string_view kParagraph = "\r\n\r\n";

} // namespace

void NastyFileList::load() {
    loadNames(needs_, needs_.nastyPage.lstFiles, kNastyFilesSection);
    tellKnown();
}

void NastyFileList::add(const std::vector<std::string>& names) {
    for (const std::string& name : names)
        if (needs_.nastyPage.lstFiles.items().size() < kMostEntries)
            needs_.nastyPage.lstFiles.add({name, 0});
    if (save())
        load();
    enableRemoving();
    tellKnown();
}

void NastyFileList::tellKnown() {
    const auto& messages = needs_.speech.messages;
    const ui::ListBox& list = needs_.nastyPage.lstFiles;
    const auto known = knownName(list.selectedText());
    needs_.nastyPage.sbKnown.setPanel(known               ? messages.getText(known->told)
                                      : list.count() == 0 ? messages.getText("noNamesYet")
                                                          : std::string());
}

bool NastyFileList::save() {
    return saveNames(needs_, needs_.nastyPage.lstFiles, kNastyFilesSection);
}

void NastyFileList::cmdAddFile_Click() {
    if (needs_.scan.busy() || needs_.nastyPage.lstFiles.items().size() == kMostEntries)
        return;
    const auto name = askForName();
    if (!name)
        return;
    add({needs_.letters.lowerCase(*name)});
}

std::optional<std::string> NastyFileList::askForName() {
    const auto& messages = needs_.speech.messages;
    std::string typed;
    for (;;) {
        const std::string prompt =
            messages.getMessage(Message::AskNastyName, {needs_.speech.phrases.getDude()})
                .append(kParagraph)
                .append(messages.getMessage(Message::NastyNameAdvice));
        auto answer = needs_.dialogs.inputBox(prompt, messages.getMessage(Message::AskNastyNameTitle), typed);
        if (!answer || answer->empty())
            return std::nullopt;
        typed = *answer;
        if (typed.find_first_of(kForbidden) != std::string::npos)
            needs_.dialogs.messageBox(
                messages.getMessage(Message::ForbiddenSigns).append(kParagraph).append(kForbidden),
                box::kCritical, messages.getMessage(Message::ForbiddenSignsTitle));
        else if (text::characterCount(typed) > kLongestName)
            needs_.speech.announcer.agentMsgBox(
                messages.getMessage(Message::NastyNameTooLong, {needs_.speech.phrases.getDude()}),
                box::kCritical, messages.getMessage(Message::NastyNameTooLongTitle), ForceBox::No);
        else
            return answer;
    }
}

void NastyFileList::cmdRemoveFile_Click() {
    ui::ListBox& list = needs_.nastyPage.lstFiles;
    if (needs_.scan.busy() || list.selected() == ui::ListControl::kNone)
        return;
    const auto& messages = needs_.speech.messages;
    const std::string question =
        messages.getMessage(Message::ConfirmRemoveName, {needs_.speech.phrases.getDude()})
            .append(kParagraph)
            .append("\"" + list.selectedText() + "\"");
    const auto answer = needs_.speech.announcer.agentMsgBox(
        question, box::kYesNo | box::kQuestion, messages.getMessage(Message::ConfirmRemoveNameTitle),
        ForceBox::Yes);
    if (answer != platform::Button::Yes)
        return;
    list.remove(list.selected());
    save();
    enableRemoving();
    tellKnown();
}

void NastyFileList::lstFiles_Click() {
    if (!needs_.scan.busy())
        enableRemoving();
    tellKnown();
}

void NastyFileList::enableRemoving() {
    needs_.nastyPage.cmdRemoveFile.setEnabled(needs_.nastyPage.lstFiles.selected() != ui::ListControl::kNone);
}

} // namespace brovin::cleaner
