#pragma once

#include "cleaner/folder_sweep.h"
#include "cleaner/scan_state.h"
#include "cleaner/statistics.h"
#include "cleaner/watched_folder_list.h"
#include "companion/actor.h"
#include "companion/speech.h"
#include "platform/clock.h"
#include "platform/deletion_history.h"
#include "platform/program_folder.h"
#include "platform/regional.h"
#include "platform/scan_lock.h"
#include "platform/shell.h"
#include "settings/settings.h"
#include "ui/pages/character_page.h"
#include "ui/pages/folders_page.h"
#include "ui/pages/scanning_page.h"
#include "ui/pages/window_frame.h"
#include "ui/program_life.h"
#include "ui/tray_tip.h"

#include <chrono>
#include <memory>
#include <optional>
#include <string>

namespace brovin::cleaner {

enum class ScanOutcome {
    Done,
    Stopped,       ///< the user has cancelled it; what was done until then is logged and counted
    Busy,          ///< a run is under way in this copy of the program; nothing has happened
    BusyElsewhere, ///< another copy of the program is scanning; nothing has happened
};

/// One sweep of every watched folder, with its log and its totals, and the button that starts it.
class ScanRun {
public:
    struct Needs {
        ui::WindowFrame& frame;
        const ui::FoldersPage& foldersPage;
        const ui::ScanningPage& scanningPage;
        const ui::CharacterPage& characterPage;
        const ui::ProgramLife& life;
        ScanState& scan;
        settings::Settings& settings;
        companion::Speech speech;
        companion::Actor& actor;
        FolderSweep& sweep;
        WatchedFolderList& folders;
        Statistics& statistics;
        platform::ProgramFolder& programFolder;
        platform::ScanLock& lock;
        ui::TrayTip& tip;
        platform::Shell& shell;
        const platform::Clock& clock;
        const platform::Regional& regional;
        platform::DeletionHistory* history = nullptr; ///< null: none is kept
    };
    explicit ScanRun(const Needs& needs);

    /// A run has got through all folders and its totals are stored.
    ui::Event<> finished;

    ScanOutcome runScan();
    /// The same, but only for what is chosen of all that it would delete. It is no scan of everything, so the
    /// time of the last one stays, and `finished` is not told.
    ScanOutcome runChosen(Choice& choice) { return run(&choice); }
    /// Ends what is under way behind the entry that is being worked on.
    void cancel() { needs_.scan.stop(); }
    void cmdNuke_Click();
    void cmdStopScan_Click();
    /// Tells of each folder that the last run left alone because another one stands in its place, and of
    /// each where something could not go for want of a trash.
    void tellOfStrangers();
    /// What was wrong with the history when the last run added to it; "": nothing.
    [[nodiscard]] const std::string& historyTrouble() const { return historyTrouble_; }

private:
    void showStatus(const std::string& text);
    void showProgress(bool running);
    void tellProgress();
    [[nodiscard]] std::unique_ptr<platform::LineWriter> openLog();
    ScanOutcome run(Choice* choice);
    void scanFolders(Choice* choice);
    void sweepAll();
    void writeSummary(platform::LineWriter& log);
    void storeTotals();
    void addToHistory(platform::DateTime now);
    void report();
    [[nodiscard]] std::string timedMessage(language::Message message) const;

    Needs needs_;
    std::string historyTrouble_;
    std::chrono::milliseconds shownAt_{};                    ///< when the progress was shown last
    std::optional<std::chrono::milliseconds> buttonEndedAt_; ///< when the button's last run was over
};

} // namespace brovin::cleaner
