// What the lines of the preview's window show, and what is done with their rows.

#include "cleaner/carried.h"
#include "cleaner/keep_entry.h"
#include "cleaner/known_names.h"
#include "cleaner/preview_window.h"
#include "cleaner/shown_path.h"
#include "text/utf8.h"

#include <algorithm>
#include <array>

namespace brovin::cleaner {

using language::Text;
using ui::Table;

std::string PreviewWindow::number(std::uint64_t count) const {
    return needs_.regional.grouped(static_cast<std::int64_t>(count));
}

std::string PreviewWindow::sizeOf(std::uint64_t bytes) const {
    return needs_.speech.messages.getText("sizeKb", {number((bytes + 1023) / 1024)});
}

std::string PreviewWindow::ageOf(const PreviewRow& row) const {
    constexpr std::int64_t kMinute = 60;
    constexpr std::int64_t kHour = 60 * kMinute;
    constexpr std::int64_t kDay = 24 * kHour;
    constexpr std::int64_t kYear = 365 * kDay;
    const std::int64_t age = std::max<std::int64_t>(searchedAt_ - row.facts.modified, 0);
    const auto told = [this](Text text, std::int64_t count) {
        return needs_.speech.messages.getText(text, {needs_.regional.grouped(count)});
    };
    if (age < kHour)
        return told("ageMinutes", age / kMinute);
    if (age < kDay)
        return told("ageHours", age / kHour);
    return age < 2 * kYear ? told("ageDays", age / kDay) : told("ageYears", age / kYear);
}

/// As the program compares it.
std::string PreviewWindow::shownName(const PreviewRow& row) const {
    return keepEntry(needs_.letters.lowerCase(row.name));
}

std::string PreviewWindow::whyOf(const PreviewRow& row) const {
    const auto& messages = needs_.speech.messages;
    if (row.why == Match::Listed)
        return messages.getText("whyListed", {text::displayText(shownName(row))});
    return messages.getText(row.why == Match::Icon ? Text("whyIcon") : Text("whyDotDash"));
}

Table::Line PreviewWindow::lineOf(std::size_t line) const {
    if (line >= view_.lines().size())
        return {};
    constexpr std::array kStates = {Text("stateFound"), Text("stateLeft"), Text("stateDeleted"),
                                    Text("stateFailed"), Text("stateChanged")};
    const PreviewRows& rows = needs_.preview.rows;
    const PreviewView::Line place = view_.lines()[line];
    const PreviewRow& row = rows[place.row];
    const RowMark& mark = rows.mark(place.row);
    const std::string folder = listedPath(rows.folderPath(row.folder), {});
    if (place.heading)
        return {
            true,
            true,
            mark.chosen,
            {view_.wish().group == PreviewView::Group::Folder ? folder : text::displayText(shownName(row))}};
    const auto& messages = needs_.speech.messages;
    return {false,
            mark.state != RowState::Deleted,
            mark.chosen,
            {text::displayText(row.name), folder, whyOf(row), sizeOf(rows.bytes(place.row)), ageOf(row),
             messages.getText(kStates.at(static_cast<std::size_t>(mark.state)))}};
}

std::string PreviewWindow::lostWith(std::uint32_t at) const {
    const PreviewRows& rows = needs_.preview.rows;
    const PreviewRow& row = rows[at];
    const auto& messages = needs_.speech.messages;
    const std::string name = shownName(row);
    const auto known = knownName(name);
    std::string text = known ? messages.getText(known->told) : messages.getText("knownNothing");
    if (!mayCarry(name) || row.facts.kind == platform::EntryKind::Folder ||
        rows.mark(at).state == RowState::Deleted)
        return text;
    const auto walk = needs_.files.open(rows.folderPath(row.folder));
    if (!walk)
        return text;
    return text + " " + carriedText(lookInto(**walk, row.name, rows.bytes(at)), messages, needs_.regional);
}

void PreviewWindow::cmdKeepThis_Click() {
    if (const std::uint32_t row = selected(); row != PreviewRows::kNone)
        keep(needs_.preview.rows.path(row));
}

void PreviewWindow::cmdKeepName_Click() {
    if (const std::uint32_t row = selected(); row != PreviewRows::kNone)
        keep(shownName(needs_.preview.rows[row]));
}

void PreviewWindow::cmdKeepFolder_Click() {
    if (const std::uint32_t row = selected(); row != PreviewRows::kNone)
        keep(needs_.preview.rows.folderPath(needs_.preview.rows[row].folder));
}

/// From here on it is on the list, and all rows that it covers are cleared: nobody would delete them.
void PreviewWindow::keep(const std::string& entry) {
    if (!needs_.keepList.add(entry))
        return;
    {
        // Nobody ticks, scans or deletes while events go through.
        const ScanState::Running clearing(needs_.scan, ScanState::Work::Search, [] {});
        clearKept(keepEntry(needs_.letters.lowerCase(entry)));
    }
    if (!needs_.form.window.visible()) {
        Form_Close(); // it was closed meanwhile
        return;
    }
    needs_.form.tblFound.refresh();
    tellFound();
}

void PreviewWindow::clearKept(const std::string& kept) {
    PreviewRows& rows = needs_.preview.rows;
    const bool isPath = kept.front() == platform::kPathSeparator;
    std::uint32_t folder = PreviewRows::kNone;
    std::string path; // of the folder of the rows that are looked at
    for (std::uint32_t at = 0; at < rows.size(); ++at) {
        needs_.pump.pump();
        if (rows[at].folder != folder) {
            folder = rows[at].folder;
            path = isPath ? needs_.letters.lowerCase(rows.folderPath(folder)) : std::string();
        }
        const std::string name = shownName(rows[at]);
        const bool covered =
            isPath ? path.starts_with(kept + platform::kPathSeparator) || path + name == kept : name == kept;
        if (covered && rows.mark(at).state != RowState::Deleted)
            rows.mark(at) = {RowState::Left, false};
    }
}

void PreviewWindow::cmdDeleteThese_Click() {
    if (needs_.scan.busy())
        return;
    const auto& messages = needs_.speech.messages;
    setRunning(true);
    const ScanOutcome outcome = needs_.preview.deleteChosen();
    std::array<std::uint64_t, 5> states{}; // rows in each state
    PreviewRows& rows = needs_.preview.rows;
    for (std::uint32_t at = 0; at < rows.size(); ++at) {
        RowMark& mark = rows.mark(at);
        states.at(static_cast<std::size_t>(mark.state)) += mark.chosen ? 1 : 0;
        mark.chosen = mark.chosen && mark.state != RowState::Deleted;
    }
    setRunning(false);
    if (!needs_.form.window.visible()) {
        Form_Close(); // it was closed meanwhile
        return;
    }
    needs_.form.tblFound.refresh();
    if (outcome == ScanOutcome::BusyElsewhere) {
        needs_.form.lblFound.setCaption(messages.getText("anotherScan"));
        return;
    }
    const auto count = [&states, this](RowState state) {
        return number(states.at(static_cast<std::size_t>(state)));
    };
    std::string text = messages.getText("previewDeleted", {count(RowState::Deleted)});
    const struct {
        RowState state;
        Text told;
    } rest[] = {{RowState::Changed, "previewChanged"},
                {RowState::Failed, "previewNotDeleted"},
                {RowState::Left, "previewLeft"}};
    for (const auto& [state, told] : rest)
        if (states.at(static_cast<std::size_t>(state)) > 0)
            text += " " + messages.getText(told, {count(state)});
    needs_.form.lblFound.setCaption(text);
}

} // namespace brovin::cleaner
