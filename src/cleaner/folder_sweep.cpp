#include "cleaner/folder_sweep.h"

#include "cleaner/folder_identity.h"
#include "cleaner/shown_path.h"

namespace brovin::cleaner {
namespace {

namespace box = platform::box;
using language::Message;
using platform::EntryKind;
using platform::Failure;
using platform::Status;

constexpr int kOutOfRange = 9;
constexpr std::size_t kUsualSubfolders = 8;

std::string withSeparator(std::string path) {
    if (!path.ends_with(platform::kPathSeparator))
        path.push_back(platform::kPathSeparator);
    return path;
}

} // namespace

void FolderSweep::beginRun(platform::LineWriter* log, Choice* choice) {
    scanItemCount = 0;
    scanKB = 0;
    notVisited = 0;
    kept = 0;
    spared = 0;
    foldersOpened = 0;
    entriesSeen = 0;
    gone = 0;
    strangers.clear();
    trashless.clear();
    shares.clear();
    cancelled_ = false;
    names_ = NameSet(needs_.nastyPage.lstFiles.items());
    keeps_ = KeepRules(needs_.nastyPage.lstKeep.items(), needs_.files, needs_.letters);
    choice_ = choice;
    log_ = log;
}

void FolderSweep::sweepFolder(const std::string& shownPath, const std::string& truePath,
                              std::string_view identity) {
    shownPath_ = withSeparator(shownPath);
    truePath_ = withSeparator(truePath);
    topLength_ = shownPath_.size();
    entryName_.clear();
    if (choice_ != nullptr && !choice_->begin(truePath))
        return;
    shares.enter(shownPath);
    showFolder("");
    auto walk = needs_.files.open(truePath);
    if (!walk) {
        if (folderFailed)
            folderFailed(truePath, walk.failure().reason);
        goOn(walk.failure()); // either answer: there is nothing else to do here
        return;
    }
    walk_ = std::move(*walk);
    if (isStranger(truePath, identity) || isKept()) {
        walk_.reset();
        return;
    }
    walk_->whileWaiting([this] {
        if (waiting)
            waiting(truePath_);
        needs_.pump.pump();
        return !cancelled_;
    });
    levels_.clear();
    levels_.push_back({{}, 0, shownPath_.size(), truePath_.size()});
    visit(levels_.back());
    // A loop and not a recursion: whoever can write to a shared disk can nest folders as deep as he likes.
    while (!levels_.empty() && !cancelled_) {
        if (levels_.back().next < levels_.back().subfolders.size())
            descend(levels_.back());
        else
            ascend();
    }
    levels_.clear();
    walk_.reset();
}

/// What is opened is asked, and not its path: nobody can put another folder there in between.
bool FolderSweep::isStranger(const std::string& truePath, std::string_view identity) {
    if (identity.empty())
        return false;
    const auto found = walk_->identity();
    if (found && isTheSame(identity, *found))
        return false;
    strangers.push_back(truePath);
    if (folderFailed)
        folderFailed(truePath,
                     found ? needs_.speech.messages.getText("anotherFolder") : found.failure().reason);
    return true;
}

/// Whether the Keep List has this watched folder, or one around it.
bool FolderSweep::isKept() {
    if (keeps_.empty())
        return false;
    const auto found = walk_->identity();
    if (!keeps_.begin(needs_.letters.lowerCase(shownPath_),
                      found ? needs_.letters.lowerCase(found->path) : std::string()))
        return false;
    ++kept;
    return true;
}

void FolderSweep::descend(Level& level) {
    const Subfolder folder = std::move(level.subfolders[level.next++]);
    showFolder(withSeparator(folder.name));
    const Status entered = walk_->enter(folder.trueName);
    if (cancelled_)
        return; // while it waited
    if (!entered) {
        entryName_ = folder.name;
        if (folderFailed)
            folderFailed(truePath_ + folder.trueName, entered.failure().reason);
        goOn(entered);
        return;
    }
    if (choice_ != nullptr)
        choice_->enter(folder.trueName);
    shownPath_ += withSeparator(folder.name);
    truePath_ += withSeparator(folder.trueName);
    levels_.push_back({{}, 0, shownPath_.size(), truePath_.size()});
    visit(levels_.back());
}

void FolderSweep::ascend() {
    levels_.pop_back();
    if (levels_.empty())
        return;
    shownPath_.resize(levels_.back().shownLength);
    truePath_.resize(levels_.back().trueLength);
    if (choice_ != nullptr)
        choice_->leave();
    const Status left = walk_->leave();
    if (left)
        return;
    // The folder above has been moved away: nothing further of this tree can be reached safely.
    if (folderFailed)
        folderFailed(truePath_, left.failure().reason);
    levels_.clear();
}

/// Said before it is opened: the status then names the folder that is not to be had.
void FolderSweep::showFolder(std::string_view below) {
    needs_.frame.sbStatus.setPanel(
        needs_.speech.messages.getMessage(Message::ScanningFolder, {shown(below)}));
}

void FolderSweep::visit(Level& level) {
    entryName_.clear();
    progress();
    if (needs_.scanningPage.chkTrash.checked() && walk_->isInTrash())
        return; // what was put there would be put there again, at each scan
    auto entries = walk_->list();
    if (entries)
        ++foldersOpened;
    std::int16_t kb = 0; // belongs to the folder: where a size is too large, the one before counts again
    for (; entries && !entries->empty(); entries = walk_->listMore()) {
        if (!handlePiece(*entries, level, kb)) {
            level.subfolders.clear();
            return;
        }
    }
    if (entries)
        return;
    if (folderFailed)
        folderFailed(truePath_, entries.failure().reason);
    if (!goOn(entries.failure()))
        level.subfolders.clear();
}

bool FolderSweep::handlePiece(std::span<const platform::Entry> entries, Level& level, std::int16_t& kb) {
    for (const platform::Entry& entry : entries) {
        needs_.pump.pump();
        if (cancelled_ || !handleEntry(entry, level, kb))
            return false;
        ++entriesSeen;
    }
    progress();
    return true;
}

bool FolderSweep::queue(const platform::Entry& entry, Level& level) {
    if (choice_ != nullptr && !choice_->leadsInto(entry.trueName))
        return true;
    if (level.subfolders.size() < kMostSubfolders) {
        if (level.subfolders.empty())
            level.subfolders.reserve(kUsualSubfolders);
        level.subfolders.push_back({std::string(entry.name), std::string(entry.trueName)});
        return true;
    }
    ++notVisited;
    entryName_ = entry.name;
    return goOn(Failure{kOutOfRange, "Subscript out of range"});
}

void FolderSweep::progress() const {
    if (progressed)
        progressed();
}

std::string FolderSweep::shown(std::string_view name) const {
    return shownPath(shownPath_, name);
}

bool FolderSweep::goOn(const Status& statement) {
    if (statement || needs_.scanningPage.chkIgnoreErrors.checked() || !needs_.frame.window.visible())
        return true;
    const auto& messages = needs_.speech.messages;
    return needs_.dialogs.messageBox(messages.getMessage(Message::DeletionFailed, {shown(entryName_)}),
                                     box::kYesNo | box::kExclamation,
                                     messages.getMessage(Message::DeletionFailedTitle)) !=
           platform::Button::Yes;
}

} // namespace brovin::cleaner
