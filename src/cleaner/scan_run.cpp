#include "cleaner/scan_run.h"

#include "cleaner/deletion_log.h"
#include "cleaner/shown_path.h"
#include "text/numbers.h"

namespace brovin::cleaner {
namespace {

namespace box = platform::box;
namespace setting = settings::setting;
using companion::ForceBox;
using language::Message;

/// How often the number of what is gone is told: each change goes round the whole desktop.
constexpr std::chrono::milliseconds kProgressInterval{250};
/// The second click of a double click comes within this time.
constexpr std::chrono::milliseconds kDoubleClick{500};

/// For a step whose failure must not stop the run: a full disk keeps nobody's clutter alive.
void carryOn(const platform::Status& /*passedOver*/) {}

/// A stored total with the run's share added.
std::string added(const std::string& stored, double share) {
    return text::numberText(text::leadingNumber(stored) + share);
}

} // namespace

ScanRun::ScanRun(const Needs& needs) : needs_(needs) {
    needs_.sweep.progressed = [this] { tellProgress(); };
    showProgress(false);
}

ScanOutcome ScanRun::runScan() {
    const ScanOutcome outcome = run(nullptr);
    if (outcome == ScanOutcome::Done)
        finished();
    return outcome;
}

ScanOutcome ScanRun::run(Choice* choice) {
    if (needs_.scan.busy())
        return ScanOutcome::Busy;
    auto hold = needs_.lock.tryHold();
    if (!hold)
        return ScanOutcome::BusyElsewhere;
    {
        const ScanState::Running running(needs_.scan, ScanState::Work::Scan,
                                         [this] { needs_.sweep.cancel(); });
        showProgress(true);
        scanFolders(choice);
        showProgress(false);
    }
    hold.reset();
    return needs_.sweep.cancelled() ? ScanOutcome::Stopped : ScanOutcome::Done;
}

void ScanRun::scanFolders(Choice* choice) {
    showStatus(needs_.speech.messages.getMessage(Message::ScanUnderWay));
    needs_.statistics.showRunning(needs_.frame.sbStatus.panel());
    shownAt_ = needs_.clock.elapsed();
    const auto log = openLog();
    needs_.sweep.beginRun(log.get(), choice);
    sweepAll();
    if (log && needs_.scanningPage.chkLog.checked())
        writeSummary(*log);

    if (choice == nullptr) {
        const platform::DateTime now = needs_.clock.now();
        const std::string timeStamp = needs_.regional.longDate(now) + " " + needs_.regional.longTime(now);
        needs_.settings.write(setting::kLastScanned, timeStamp);
        storeTotals();
        showStatus("Last scanned on " + timeStamp);
    } else {
        storeTotals(); // not everything was swept, so the last scan is what it was
        needs_.statistics.showLastScanned();
        needs_.tip.show(needs_.frame.sbStatus.panel());
    }
    addToHistory(needs_.clock.now());
    needs_.statistics.updateStatistics();
}

void ScanRun::showStatus(const std::string& text) {
    needs_.frame.sbStatus.setPanel(text);
    needs_.tip.show(text);
}

void ScanRun::showProgress(bool running) {
    if (running)
        needs_.frame.sbProgress.setPanel("");
    needs_.frame.sbProgress.setVisible(running);
    needs_.frame.cmdStopScan.setEnabled(true);
    needs_.frame.cmdStopScan.setVisible(running);
}

/// Beside the button that stops it, in the title and at the icon; the status line tells the folder meanwhile.
void ScanRun::tellProgress() {
    const std::chrono::milliseconds now = needs_.clock.elapsed();
    if (now - shownAt_ < kProgressInterval)
        return;
    shownAt_ = now;
    const auto& messages = needs_.speech.messages;
    const auto number = [this](std::uint64_t count) {
        return needs_.regional.grouped(static_cast<std::int64_t>(count));
    };
    const FolderSweep& sweep = needs_.sweep;
    const std::string gone = number(sweep.gone);
    const std::string counts =
        messages.getText("scanProgress", {number(sweep.foldersOpened), number(sweep.entriesSeen), gone});
    needs_.frame.sbProgress.setPanel(counts);
    needs_.tip.show(counts, sweep.folderInWork());
    needs_.statistics.showRunning(messages.getMessage(Message::ScanUnderWay) + " " +
                                  messages.getText("goneSoFar", {gone}));
}

std::unique_ptr<platform::LineWriter> ScanRun::openLog() {
    if (!needs_.scanningPage.chkLog.checked())
        return nullptr;
    auto log = needs_.programFolder.openText(std::string(kLogFile), platform::OpenMode::Append);
    if (!log)
        return nullptr; // the run goes on without a log
    carryOn((*log)->writeLine(kLogSeparator));
    carryOn((*log)->writeLine(timedMessage(Message::LogScanBegun)));
    return std::move(*log);
}

void ScanRun::sweepAll() {
    for (std::size_t i = 0; i < needs_.foldersPage.lstFolders.items().size() && !needs_.sweep.cancelled();
         ++i) {
        needs_.folders.sweep(i, needs_.sweep);
    }
}

void ScanRun::writeSummary(platform::LineWriter& log) {
    const auto& messages = needs_.speech.messages;
    if (needs_.sweep.keeps())
        carryOn(log.writeLine(messages.getText("logKept", {std::to_string(needs_.sweep.kept)})));
    if (needs_.sweep.spared > 0)
        carryOn(log.writeLine(messages.getText("logSpared", {std::to_string(needs_.sweep.spared)})));
    if (needs_.sweep.scanItemCount <= 0) {
        carryOn(log.writeLine(messages.getMessage(Message::LogNothingFound)));
        return;
    }
    carryOn(log.writeLine(
        messages.getMessage(Message::LogScanSum, {std::to_string(needs_.sweep.scanItemCount),
                                                  needs_.regional.grouped(needs_.sweep.scanKB)})));
    carryOn(log.writeLine(timedMessage(Message::LogScanFinished)));
}

void ScanRun::storeTotals() {
    needs_.settings.write(setting::kTotalNuked,
                          added(needs_.settings.read(setting::kTotalNuked), needs_.sweep.scanItemCount));
    needs_.settings.write(setting::kKb, added(needs_.settings.read(setting::kKb), needs_.sweep.scanKB));
}

void ScanRun::addToHistory(platform::DateTime now) {
    historyTrouble_.clear();
    const std::vector<platform::DeletedShare> shares = needs_.sweep.shares.take();
    if (needs_.history == nullptr || shares.empty())
        return;
    const auto& messages = needs_.speech.messages;
    const platform::Status added = needs_.history->append(now, shares);
    if (const std::string aside = needs_.history->takeDamaged(); !aside.empty())
        historyTrouble_ = messages.getText("scoreDamaged", {aside});
    if (!added)
        historyTrouble_ = messages.getText("scoreNotKept", {added.failure().reason});
}

std::string ScanRun::timedMessage(Message message) const {
    const platform::DateTime now = needs_.clock.now();
    return needs_.speech.messages.getMessage(message,
                                             {needs_.regional.longTime(now), needs_.regional.longDate(now)});
}

void ScanRun::cmdNuke_Click() {
    // A scan of little is over between the two clicks of a double click, which wants one.
    if (needs_.scan.busy() || (buttonEndedAt_ && needs_.clock.elapsed() - *buttonEndedAt_ < kDoubleClick))
        return;
    if (needs_.foldersPage.lstFolders.count() == 0) {
        needs_.speech.announcer.agentMsgBox(
            needs_.speech.messages.getMessage(Message::NoFolders), box::kCritical,
            needs_.speech.messages.getMessage(Message::NoFoldersTitle), ForceBox::No);
        return;
    }
    if (needs_.characterPage.chkAgent.checked()) {
        needs_.actor.prepare();
        if (const auto animation = needs_.speech.phrases.pickPhrase(language::PhraseList::AniNukeFiles))
            needs_.actor.play(*animation);
    }
    const ScanOutcome outcome = runScan();
    buttonEndedAt_ = needs_.clock.elapsed();
    if (outcome == ScanOutcome::BusyElsewhere) {
        needs_.speech.announcer.agentMsgBox(needs_.speech.messages.getText("anotherScan"), box::kInformation,
                                            "", ForceBox::No);
        return;
    }
    if (needs_.life.exitConfirmed)
        return; // an update that the run has ended with takes the program's place
    needs_.scan.lastScanTime = needs_.clock.now();
    needs_.statistics.showLastScanned();
    needs_.shell.setForegroundWindow();
    report();
    // A box has taken the second click of a double click; the next one is meant.
    if (!needs_.characterPage.chkAgent.checked() || needs_.actor.character == nullptr)
        buttonEndedAt_.reset();
    tellOfStrangers();
}

void ScanRun::cmdStopScan_Click() {
    needs_.frame.cmdStopScan.setEnabled(false); // heard; the entry in work may take a while
    cancel();
}

void ScanRun::report() {
    const auto& messages = needs_.speech.messages;
    const std::string dude = needs_.speech.phrases.getDude();
    const std::int16_t items = needs_.sweep.scanItemCount;
    std::string text;
    if (items < 1)
        text = messages.getMessage(Message::NothingDeleted, {dude});
    else if (items == 1)
        text = messages.getMessage(Message::OneDeleted, {dude});
    else
        text = messages.getMessage(Message::SeveralDeleted, {std::to_string(items), dude});
    needs_.speech.announcer.agentMsgBox(text, box::kInformation, "", ForceBox::No);
    needs_.actor.hearOut();
}

void ScanRun::tellOfStrangers() {
    for (const std::string& path : needs_.sweep.strangers)
        if (!needs_.folders.askWhetherRight(path))
            needs_.speech.announcer.agentMsgBox(
                needs_.speech.messages.getText("folderReplaced", {shownPath(path, "")}), box::kExclamation,
                "", ForceBox::No);
    for (const std::string& path : needs_.sweep.trashless)
        needs_.speech.announcer.agentMsgBox(needs_.speech.messages.getText("noTrash", {shownPath(path, "")}),
                                            box::kExclamation, "", ForceBox::No);
    if (!historyTrouble_.empty())
        needs_.speech.announcer.agentMsgBox(historyTrouble_, box::kExclamation, "", ForceBox::No);
}

} // namespace brovin::cleaner
