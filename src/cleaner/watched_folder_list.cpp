#include "cleaner/watched_folder_list.h"

#include "cleaner/folder_guard.h"
#include "cleaner/folder_identity.h"
#include "cleaner/shown_path.h"
#include "cleaner/unshown_folders.h"

namespace brovin::cleaner {
namespace {

namespace box = platform::box;
using language::Message;

} // namespace

void WatchedFolderList::load() {
    fill(loadList(needs_.settings, kWatchedFoldersSection, needs_.letters));
}

void WatchedFolderList::show(const std::vector<std::string>& paths) {
    std::vector<ListEntry> entries;
    entries.reserve(paths.size());
    for (const std::string& path : paths)
        entries.push_back({needs_.letters.lowerCase(path), path});
    fill(std::move(entries));
}

void WatchedFolderList::fill(std::vector<ListEntry> entries) {
    std::vector<ui::ListControl::Item> items;
    paths_.clear();
    identities_.clear();
    refused_.clear();
    for (ListEntry& entry : entries) {
        items.push_back({std::move(entry.text), 0});
        paths_.push_back(std::move(entry.path));
        identities_.push_back(std::move(entry.identity));
        refused_.push_back(std::move(entry.refused));
    }
    needs_.foldersPage.lstFolders.setItems(std::move(items));
}

void WatchedFolderList::save() {
    std::vector<ListEntry> entries;
    for (std::size_t i = 0; i < paths_.size(); ++i)
        entries.push_back(
            {needs_.foldersPage.lstFolders.items()[i].text, paths_[i], identities_[i], refused_[i]});
    saveList(needs_.settings, kWatchedFoldersSection, entries, WithPaths::Yes, needs_.letters);
}

std::optional<std::string> WatchedFolderList::truePath(std::size_t index) const {
    if (!paths_[index].empty())
        return paths_[index];
    return needs_.files.findWithoutCase(needs_.foldersPage.lstFolders.items()[index].text);
}

void WatchedFolderList::sweep(std::size_t index, FolderSweep& sweep) const {
    const std::string shown = needs_.foldersPage.lstFolders.items()[index].text;
    // A folder that cannot be told from another is swept as the missing one it counts as.
    sweep.sweepFolder(shown, truePath(index).value_or(shown), identities_[index]);
}

/// A folder that cannot be opened at this moment is watched all the same.
std::optional<platform::FolderIdentity> WatchedFolderList::identityOf(const std::string& path) const {
    const auto walk = needs_.files.open(path);
    if (!walk)
        return std::nullopt;
    const auto identity = (*walk)->identity();
    return identity ? std::optional(*identity) : std::nullopt;
}

bool WatchedFolderList::askWhetherRight(const std::string& path) {
    const auto found = identityOf(path);
    for (std::size_t i = 0; found && i < paths_.size(); ++i) {
        const std::string now = identityText(*found);
        if (truePath(i) != path || !isOnAnotherDisk(identities_[i], *found) ||
            (!refused_[i].empty() && isTheSame(refused_[i], *found)))
            continue;
        const auto answer = needs_.speech.announcer.agentMsgBox(
            needs_.speech.messages.getText("folderAnew", {shownPath(path, "")}), box::kYesNo | box::kQuestion,
            "", companion::ForceBox::Yes);
        (answer == platform::Button::Yes ? identities_ : refused_)[i] = now;
        save();
        return true;
    }
    return false;
}

/// Whether the user means a folder that nobody would sweep by mistake and be glad.
bool WatchedFolderList::wanted(const std::string& path) const {
    const auto risk = riskText(folderRisk(path, needs_.landmarks));
    if (!risk)
        return true;
    const auto& messages = needs_.speech.messages;
    const auto answer = needs_.speech.announcer.agentMsgBox(
        messages.getText(*risk) + "\r\n\r\n" + messages.getText("riskSure", {shownPath(path, "")}),
        box::kYesNo | box::kExclamation, "", companion::ForceBox::Yes);
    return answer == platform::Button::Yes;
}

void WatchedFolderList::cmdAddFolder_Click() {
    if (needs_.scan.busy())
        return;
    const auto& messages = needs_.speech.messages;
    const std::string path =
        throughUnshownFolders(needs_.dialogs.browseForFolder(messages.getMessage(Message::ChooseFolder)),
                              needs_.files, needs_.dialogs, messages);
    if (!path.empty() && paths_.size() < kMostEntries && wanted(path)) {
        const auto found = identityOf(path);
        const std::string identity = found ? identityText(*found) : std::string();
        // Added again, it is the right one, whatever stood there when it was added before.
        for (std::size_t i = 0; i < paths_.size(); ++i)
            if (truePath(i) == path)
                identities_[i] = identity;
        paths_.push_back(path);
        identities_.push_back(identity);
        refused_.emplace_back();
        needs_.foldersPage.lstFolders.add({path, 0}); // in lower case from the next load on
        save();
    }
    showHint();
}

void WatchedFolderList::cmdRemoveFolder_Click() {
    ui::ListBox& list = needs_.foldersPage.lstFolders;
    if (needs_.scan.busy() || list.selected() == ui::ListControl::kNone)
        return;
    const auto& messages = needs_.speech.messages;
    const std::string question =
        messages.getMessage(Message::ConfirmRemoveFolder, {needs_.speech.phrases.getDude()}) + "\r\n\r\n" +
        list.selectedText();
    const auto answer = needs_.speech.announcer.agentMsgBox(
        question, box::kYesNo | box::kQuestion, messages.getMessage(Message::ConfirmRemoveFolderTitle),
        companion::ForceBox::Yes);
    if (answer == platform::Button::Yes) {
        paths_.erase(paths_.begin() + list.selected());
        identities_.erase(identities_.begin() + list.selected());
        refused_.erase(refused_.begin() + list.selected());
        list.remove(list.selected());
        save();
    }
    showHint();
    needs_.foldersPage.cmdRemoveFolder.setEnabled(list.selected() != ui::ListControl::kNone);
}

void WatchedFolderList::lstFolders_Click() {
    if (needs_.scan.busy())
        return;
    ui::ListBox& list = needs_.foldersPage.lstFolders;
    needs_.foldersPage.cmdRemoveFolder.setEnabled(list.selected() != ui::ListControl::kNone);
    list.setToolTip(list.selectedText());
}

void WatchedFolderList::showHint() {
    needs_.foldersPage.picAdd.setVisible(needs_.foldersPage.lstFolders.count() == 0);
}

} // namespace brovin::cleaner
