#include "cleaner/preview_window.h"

#include "cleaner/carried.h"
#include "cleaner/keep_entry.h"
#include "cleaner/known_names.h"
#include "cleaner/shown_path.h"

#include <algorithm>
#include <array>
#include <utility>

namespace brovin::cleaner {
namespace {

namespace box = platform::box;
using By = PreviewView::By;
using language::Message;
using ui::Table;

/// How often what has been found is shown: often enough to be seen growing.
constexpr std::chrono::milliseconds kShowInterval{250};

/// What the columns are sorted by; the last one tells what became of a row.
constexpr std::array kColumns = {By::Name, By::Folder, By::Why, By::Size, By::Age};

} // namespace

PreviewWindow::PreviewWindow(const Needs& needs)
    : needs_(needs), view_(needs.preview.rows, needs.pump, needs.letters) {
    tie();
    setRunning(false);
}

void PreviewWindow::tie() {
    ui::FrmPreview& form = needs_.form;
    form.cmdStop.click = [this] { cmdStop_Click(); };
    form.cmdSearchAgain.click = [this] { search(); };
    form.cmdDeleteThese.click = [this] { cmdDeleteThese_Click(); };
    form.cmdKeepThis.click = [this] { cmdKeepThis_Click(); };
    form.cmdKeepName.click = [this] { cmdKeepName_Click(); };
    form.cmdKeepFolder.click = [this] { cmdKeepFolder_Click(); };
    form.cmdOpenFolder.click = [this] { cmdOpenFolder_Click(); };
    form.cmdTickAll.click = [this] { tickShown(true); };
    form.cmdTickNone.click = [this] { tickShown(false); };
    form.cmdClose.click = [this] { Form_Close(); };
    form.window.close = [this] { Form_Close(); };
    form.txtFilter.change = [this] { arrange(); };
    form.cmbGroup.click = [this] { arrange(); };
    form.tblFound.line = [this](std::size_t line) { return lineOf(line); };
    form.tblFound.titleClick = [this](std::size_t column) { tblFound_TitleClick(column); };
    form.tblFound.tick = [this](std::size_t line, bool on) { tblFound_Tick(line, on); };
    form.tblFound.activate = [this](std::size_t) { cmdOpenFolder_Click(); };
    form.tblFound.select = [this] { tblFound_Select(); };
    view_.renewed = [this] {
        needs_.form.tblFound.renew(view_.lines().size());
        tblFound_Select();
    };
    needs_.preview.progressed = [this] {
        const std::chrono::milliseconds now = needs_.clock.elapsed();
        if (now - shownAt_ < kShowInterval)
            return;
        shownAt_ = now;
        tellFound();
    };
}

/// In the language of the moment.
void PreviewWindow::dress() {
    ui::FrmPreview& form = needs_.form;
    const auto& messages = needs_.speech.messages;
    const struct {
        ui::Control* control;
        language::Text text;
    } captions[] = {
        {&form.window, "previewTitle"},
        {&form.lblFilter, "previewFilter"},
        {&form.txtFilter, "previewFilter"},
        {&form.lblGroup, "previewGroup"},
        {&form.cmbGroup, "previewGroup"},
        {&form.tblFound, "previewTitle"},
        {&form.cmdTickAll, "previewTickAll"},
        {&form.cmdTickNone, "previewTickNone"},
        {&form.cmdKeepThis, "previewKeepThis"},
        {&form.cmdKeepName, "previewKeepName"},
        {&form.cmdKeepFolder, "previewKeepFolder"},
        {&form.cmdOpenFolder, "previewOpenFolder"},
        {&form.cmdStop, "previewStop"},
        {&form.cmdSearchAgain, "previewSearchAgain"},
        {&form.cmdDeleteThese, "previewDeleteThese"},
        {&form.cmdClose, "previewClose"},
    };
    for (const auto& [control, text] : captions)
        control->setCaption(messages.getText(text));
    form.tblFound.setColumns({{messages.getText("columnName")},
                              {messages.getText("columnFolder")},
                              {messages.getText("columnWhy")},
                              {messages.getText("columnSize"), true},
                              {messages.getText("columnAge"), true},
                              {messages.getText("columnState")}});
    const int group = std::max(form.cmbGroup.selected(), 0);
    form.cmbGroup.setItems({{messages.getText("groupNone"), 0},
                            {messages.getText("groupFolder"), 0},
                            {messages.getText("groupName"), 0}});
    form.cmbGroup.place(group);
}

void PreviewWindow::cmdPreview_Click() {
    if (needs_.foldersPage.lstFolders.count() == 0) {
        needs_.speech.announcer.agentMsgBox(
            needs_.speech.messages.getMessage(Message::NoFolders), box::kCritical,
            needs_.speech.messages.getMessage(Message::NoFoldersTitle), companion::ForceBox::No);
        return;
    }
    const bool wasOpen = needs_.form.window.visible();
    dress();
    needs_.form.window.setVisible(true);
    if (!wasOpen || needs_.preview.rows.size() == 0)
        search();
}

void PreviewWindow::search() {
    if (needs_.scan.busy()) {
        needs_.form.lblFound.setCaption(needs_.speech.messages.getText("previewScanRuns"));
        return;
    }
    searching_ = true;
    setRunning(true);
    shownAt_ = needs_.clock.elapsed();
    searchedAt_ = needs_.clock.secondsUtc();
    needs_.preview.rows.clear();
    view_.clear();
    tellFound();
    outcome_ = needs_.preview.search();
    searching_ = false;
    setRunning(false);
    if (!needs_.form.window.visible()) {
        Form_Close(); // it was closed meanwhile
        return;
    }
    arrange();
    tellFound();
}

void PreviewWindow::setRunning(bool running) {
    ui::FrmPreview& form = needs_.form;
    form.cmdStop.setVisible(running);
    form.cmdStop.setEnabled(running);
    for (ui::Button* button : {&form.cmdSearchAgain, &form.cmdTickAll, &form.cmdTickNone})
        button->setEnabled(!running);
    form.cmdDeleteThese.setEnabled(!running && needs_.preview.rows.chosen().rows > 0);
    tblFound_Select();
}

/// Shows what has been found since, and counts it.
void PreviewWindow::tellFound() {
    const PreviewRows& rows = needs_.preview.rows;
    const PreviewRows::Sum chosen = rows.chosen();
    if (searching_) {
        view_.append();
        needs_.form.tblFound.setLines(view_.lines().size());
    }
    const auto& messages = needs_.speech.messages;
    const std::string folders = number(needs_.preview.sweep().foldersOpened);
    std::string text;
    if (searching_)
        text = messages.getText("previewSearching", {number(rows.size()), folders});
    else if (rows.size() == 0)
        text = messages.getText("previewNothing", {folders});
    else
        text = messages.getText("previewFound",
                                {number(rows.size()), number(chosen.rows), sizeOf(chosen.bytes)});
    if (!searching_ && outcome_ == Preview::Outcome::Stopped)
        text += " " + messages.getText("previewStopped");
    if (!searching_ && outcome_ == Preview::Outcome::Full)
        text += " " + messages.getText("previewFull", {number(rows.size())});
    if (!searching_ && needs_.preview.foldersFailed() > 0)
        text += " " + messages.getText("previewFailed", {number(needs_.preview.foldersFailed())});
    if (const std::uint64_t left = needs_.preview.sweep().notVisited; !searching_ && left > 0)
        text +=
            " " + messages.getText("previewNotVisited", {number(left), number(FolderSweep::kMostSubfolders)});
    needs_.form.lblFound.setCaption(text);
    needs_.form.cmdDeleteThese.setEnabled(!needs_.scan.busy() && chosen.rows > 0);
}

void PreviewWindow::arrange() {
    PreviewView::Wish wish = view_.wish();
    wish.filter = needs_.form.txtFilter.text();
    wish.group = static_cast<PreviewView::Group>(std::max(needs_.form.cmbGroup.selected(), 0));
    view_.arrange(wish);
}

void PreviewWindow::tblFound_TitleClick(std::size_t column) {
    if (column >= kColumns.size())
        return;
    PreviewView::Wish wish = view_.wish();
    wish.descending = wish.by == kColumns[column] && !wish.descending;
    wish.by = kColumns[column];
    needs_.form.tblFound.setSorted(column, wish.descending);
    view_.arrange(wish);
}

/// In one go, so that nobody can delete what is ticked by half.
void PreviewWindow::tick(std::size_t firstLine, std::size_t end, bool on) {
    for (std::size_t line = firstLine; line < end; ++line) {
        RowMark& mark = needs_.preview.rows.mark(view_.lines()[line].row);
        mark.chosen = mark.state != RowState::Deleted && on;
    }
    needs_.form.tblFound.refresh();
    tellFound();
}

void PreviewWindow::tblFound_Tick(std::size_t line, bool on) {
    if (needs_.scan.busy() || line >= view_.lines().size())
        return;
    const bool heading = view_.lines()[line].heading;
    tick(line, heading ? view_.endOfGroup(line) : line + 1, on);
}

void PreviewWindow::tickShown(bool on) {
    if (!needs_.scan.busy())
        tick(0, view_.lines().size(), on);
}

std::uint32_t PreviewWindow::selected() const {
    const std::size_t line = needs_.form.tblFound.selected();
    return line < view_.lines().size() ? view_.lines()[line].row : PreviewRows::kNone;
}

void PreviewWindow::tblFound_Select() {
    ui::FrmPreview& form = needs_.form;
    const std::uint32_t row = selected();
    const bool editable = row != PreviewRows::kNone && !needs_.scan.busy();
    for (ui::Button* button : {&form.cmdKeepThis, &form.cmdKeepName, &form.cmdKeepFolder})
        button->setEnabled(editable);
    form.cmdOpenFolder.setEnabled(row != PreviewRows::kNone);
    form.lblLost.setCaption(row != PreviewRows::kNone ? lostWith(row) : std::string());
}

void PreviewWindow::cmdStop_Click() {
    needs_.form.cmdStop.setEnabled(false); // heard; the entry in work may take a while
    needs_.scan.stop();
}

void PreviewWindow::Form_Close() {
    needs_.form.window.setVisible(false);
    if (searching_)
        needs_.preview.cancel();
    if (needs_.scan.busy())
        return;
    needs_.preview.rows.clear();
    view_.clear();
}

void PreviewWindow::cmdOpenFolder_Click() {
    const std::uint32_t row = selected();
    if (row == PreviewRows::kNone)
        return;
    const std::string folder = needs_.preview.rows.folderPath(needs_.preview.rows[row].folder);
    if (!needs_.shell.openDocument(folder))
        needs_.form.lblLost.setCaption(
            needs_.speech.messages.getText("folderNotOpened", {shownPath(folder, {})}));
}

} // namespace brovin::cleaner
