// What a sweep does with one entry that matches: whether it goes, and how.
#include "cleaner/folder_sweep.h"

#include <limits>
#include <system_error>

namespace brovin::cleaner {
namespace {

namespace box = platform::box;
using language::Message;
using platform::Done;
using platform::EntryKind;
using platform::Failure;
using platform::Force;
using platform::Result;
using platform::Status;

constexpr std::int32_t kLeastKilobytes = 4; ///< what the smallest deletion counts
constexpr int kOverflow = 6;

template <class Int>
Status assign(Int& variable, std::int64_t value) {
    if (value < std::numeric_limits<Int>::min() || value > std::numeric_limits<Int>::max())
        return Failure{kOverflow, "Overflow"};
    variable = static_cast<Int>(value);
    return Done{};
}

/// Whole kilobytes in a 16-bit variable, which keeps what it held when there are too many, or none to be had.
Status assignKilobytes(std::int16_t& kb, const Result<std::uint64_t>& bytes) {
    if (!bytes)
        return bytes.failure();
    return assign(kb, static_cast<std::int64_t>(*bytes / 1024));
}

} // namespace

bool FolderSweep::handleEntry(const platform::Entry& entry, Level& level, std::int16_t& kb) {
    // The boxes count as they stand at this moment; the user may change them while the scan runs.
    const DeleteRules rules{needs_.nastyPage.chkIcon.checked(), needs_.nastyPage.chkDotDash.checked()};
    const Match match = rules.match(entry.name, names_);
    if (match == Match::None && entry.kind != EntryKind::Folder)
        return true;
    if (!keeps_.empty() && keepsEntry(entry, match)) {
        ++kept;
        return true;
    }
    if (match == Match::None)
        return queue(entry, level);
    entryName_ = entry.name;
    deletion_ = {truePath_, entry.trueName, entry.name, match};
    carried_.reset();
    if (choice_ != nullptr && !choice_->takes(*walk_, entry))
        return true;
    if (spares() && carriesSomething(entry)) {
        ++spared;
        return true;
    }
    if (needs_.scanningPage.chkConfirm.checked() && !confirmed(entry))
        return true;
    if (match == Match::Icon)
        return deleteIcon(entry);
    return entry.kind == EntryKind::Folder ? deleteListedFolder(entry, kb) : deleteListed(entry, kb);
}

bool FolderSweep::keepsEntry(const platform::Entry& entry, Match match) const {
    const std::string_view below = std::string_view(shownPath_).substr(topLength_);
    return keeps_.keeps(below, entry.name) || (match != Match::None && entry.kind == EntryKind::Folder &&
                                               keeps_.keepsWithin(*walk_, below, entry));
}

bool FolderSweep::carriesSomething(const platform::Entry& entry) {
    if (!mayCarry(entry.name) || entry.kind == EntryKind::Folder)
        return false;
    const auto facts = look(entry);
    carried_ = lookInto(*walk_, entry.trueName, facts ? facts->bytes : 0);
    return carried_->something;
}

/// What is told of the entry; asked once.
Result<platform::EntryFacts> FolderSweep::look(const platform::Entry& entry) {
    if (deletion_.facts)
        return *deletion_.facts;
    auto facts = walk_->facts(entry.trueName);
    if (facts) {
        deletion_.facts = *facts;
        deletion_.bytes += facts->bytes;
    }
    return facts;
}

// In the deletions each line is one statement. A failed one may be passed over, and the next then runs as if
// nothing had happened: that is why a deletion that failed is logged and counted like any other.

bool FolderSweep::deleteIcon(const platform::Entry& entry) {
    return goOn(addKilobytes(kLeastKilobytes)) &&
           goOn(tryDeletion(entry, EntryKind::File, kLeastKilobytes)) &&
           goOn(writeLog(needs_.speech.messages.getMessage(Message::LogFileDeleted, {shown(entry.name)}))) &&
           goOn(countItem());
}

bool FolderSweep::deleteListed(const platform::Entry& entry, std::int16_t& kb) {
    const auto facts = look(entry);
    if (!goOn(assignKilobytes(kb, facts ? Result(facts->bytes) : facts.failure())))
        return false;
    const std::int32_t counted = kb > kLeastKilobytes ? kb : kLeastKilobytes;
    return goOn(addKilobytes(counted)) && //
           goOn(tryDeletion(entry, EntryKind::File, counted)) &&
           goOn(writeLog(needs_.speech.messages.getMessage(Message::LogFileDeleted, {shown(entry.name)}))) &&
           goOn(countItem());
}

bool FolderSweep::deleteListedFolder(const platform::Entry& entry, std::int16_t& kb) {
    const auto size = walk_->folderSize(entry.trueName);
    deletion_.bytes = size ? *size : 0;
    if (!goOn(assignKilobytes(kb, size)))
        return false;
    if (kb < kLeastKilobytes)
        kb = kLeastKilobytes;
    return goOn(addKilobytes(kb)) && //
           goOn(tryDeletion(entry, EntryKind::Folder, kb)) &&
           goOn(writeLog(needs_.speech.messages.getMessage(
               Message::LogFolderDeleted, {needs_.regional.grouped(kb), shown(entry.name)}))) &&
           goOn(countItem());
}

bool FolderSweep::confirmed(const platform::Entry& entry) {
    const auto& messages = needs_.speech.messages;
    const std::string question =
        messages.getMessage(Message::ConfirmDelete, {shown(entry.name), needs_.speech.phrases.getDude()});
    return needs_.dialogs.messageBox(question, box::kYesNo | box::kQuestion,
                                     messages.getMessage(Message::ConfirmDeleteTitle)) ==
           platform::Button::Yes;
}

/// What an entry is deleted for: its own name where that is on the list, else the rule.
std::string_view FolderSweep::causeOf(const platform::Entry& entry) const {
    if (names_.contains(entry.name))
        return entry.name;
    return entry.name.starts_with("._") ? "._*" : "icon?";
}

Status FolderSweep::remove(const platform::Entry& entry, EntryKind kind) {
    // Every disk refuses that. Said here, it is so where nothing is really deleted, too.
    if (kind == EntryKind::File && entry.kind == EntryKind::Folder) {
        const std::error_code refused = std::make_error_code(std::errc::is_a_directory);
        return Failure{refused.value(), refused.message()};
    }
    const Force force = needs_.scanningPage.chkForce.checked() ? Force::Yes : Force::No;
    if (!needs_.scanningPage.chkTrash.checked())
        return kind == EntryKind::Folder ? walk_->deleteFolder(entry.trueName, force)
                                         : walk_->deleteFile(entry.trueName, force);
    Status moved = walk_->moveToTrash(entry.trueName, kind, force);
    const std::string watched = shownPath_.substr(0, levels_.front().shownLength);
    if (!moved && moved.failure().number == platform::kNoTrash &&
        (trashless.empty() || trashless.back() != watched))
        trashless.push_back(watched);
    return moved;
}

Status FolderSweep::tryDeletion(const platform::Entry& entry, EntryKind kind, std::int32_t kb) {
    // Afterwards there is nothing left to look at.
    if (wantsFacts)
        static_cast<void>(look(entry));
    if (looksInto && !carried_)
        static_cast<void>(carriesSomething(entry));
    Status outcome = remove(entry, kind);
    if (outcome) {
        ++gone;
        shares.add(causeOf(entry), kb);
    }
    if (choice_ != nullptr)
        choice_->tried(static_cast<bool>(outcome));
    if (!deletionTried)
        return outcome;
    deletion_.kind = kind;
    deletion_.kb = kb;
    deletion_.carried = carried_ ? &*carried_ : nullptr;
    deletion_.deleted = static_cast<bool>(outcome);
    deletion_.reason = outcome ? std::string() : outcome.failure().reason;
    deletionTried(deletion_);
    return outcome;
}

Status FolderSweep::writeLog(const std::string& line) {
    if (log_ == nullptr || !needs_.scanningPage.chkLog.checked())
        return Done{};
    return log_->writeLine(line);
}

Status FolderSweep::addKilobytes(std::int32_t kb) {
    return assign(scanKB, std::int64_t{scanKB} + kb);
}

Status FolderSweep::countItem() {
    Status counted = assign(scanItemCount, std::int64_t{scanItemCount} + 1);
    progress();
    return counted;
}

} // namespace brovin::cleaner
