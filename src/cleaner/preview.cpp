#include "cleaner/preview.h"

#include "cleaner/chosen_rows.h"

namespace brovin::cleaner {

Preview::Preview(const Needs& needs)
    : needs_(needs), files_(needs.files), sweep_({.frame = pages_,
                                                  .nastyPage = pages_,
                                                  .scanningPage = pages_,
                                                  .speech = needs.speech,
                                                  .files = files_,
                                                  .dialogs = needs.dialogs,
                                                  .regional = needs.regional,
                                                  .letters = needs.letters,
                                                  .pump = needs.pump}) {
    sweep_.wantsFacts = true;
    sweep_.progressed = [this] {
        if (progressed)
            progressed();
    };
    sweep_.folderFailed = [this](const std::string&, const std::string&) { ++foldersFailed_; };
    sweep_.deletionTried = [this](const Deletion& deletion) {
        if (!deletion.deleted)
            return; // a scan would try it in vain
        full_ = rows.size() == kMostRows;
        if (full_)
            sweep_.cancel();
        else
            rows.add(deletion);
    };
}

/// As they stand when the search begins. What is shown is not to change its mind half-way.
void Preview::takeOptions() {
    const ui::NastyFilesPage& stored = needs_.nastyPage;
    pages_.chkDotDash.setValue(stored.chkDotDash.value());
    pages_.chkIcon.setValue(stored.chkIcon.value());
    pages_.chkSpare.setValue(stored.chkSpare.value());
    pages_.lstFiles.setItems(stored.lstFiles.items());
    pages_.lstKeep.setItems(stored.lstKeep.items());
    pages_.chkTrash.setValue(needs_.scanningPage.chkTrash.value());
    pages_.chkIgnoreErrors.setValue(ui::CheckBox::kOn);
}

Preview::Outcome Preview::search() {
    if (needs_.scan.busy())
        return Outcome::Busy;
    const ScanState::Running running(needs_.scan, ScanState::Work::Search, [this] { cancel(); });
    rows.clear();
    full_ = false;
    foldersFailed_ = 0;
    takeOptions();
    sweep_.beginRun(nullptr);
    const int folders = needs_.foldersPage.lstFolders.count();
    for (int i = 0; i < folders && !sweep_.cancelled(); ++i) {
        const auto folder = static_cast<std::size_t>(i);
        const auto path = needs_.folders.truePath(folder);
        if (path)
            rows.beginTop(*path);
        needs_.folders.sweep(folder, sweep_);
    }
    if (full_)
        return Outcome::Full;
    return sweep_.cancelled() ? Outcome::Stopped : Outcome::Done;
}

ScanOutcome Preview::deleteChosen() {
    ChosenRows chosen(rows, needs_.pump);
    const ScanOutcome outcome = needs_.scanRun.runChosen(chosen);
    if (outcome == ScanOutcome::Done)
        chosen.finish();
    return outcome;
}

} // namespace brovin::cleaner
