#pragma once

#include "cleaner/folder_sweep.h"
#include "cleaner/preview_file_system.h"
#include "cleaner/preview_rows.h"
#include "cleaner/scan_run.h"
#include "cleaner/scan_state.h"
#include "cleaner/watched_folder_list.h"

#include <cstddef>
#include <cstdint>
#include <functional>

namespace brovin::cleaner {

/// What the next scan would delete, found by the scan's own sweep on a disk where deletions do nothing, and
/// the deletion of what the user chooses of it, which is a scan that leaves the rest.
class Preview {
public:
    /// More are not found: a share full of clutter must not fill the memory.
    static constexpr std::size_t kMostRows = 1'000'000;

    struct Needs {
        const ui::FoldersPage& foldersPage;
        const ui::NastyFilesPage& nastyPage;
        const ui::ScanningPage& scanningPage;
        ScanState& scan;
        companion::Speech speech;
        ScanRun& scanRun;
        const WatchedFolderList& folders;
        platform::FileSystem& files;
        platform::Dialogs& dialogs;
        platform::EventPump& pump;
        const platform::Regional& regional;
        const platform::Letters& letters;
    };
    explicit Preview(const Needs& needs);
    Preview(const Preview&) = delete;
    Preview& operator=(const Preview&) = delete;

    enum class Outcome : std::uint8_t {
        Done,
        Stopped, ///< by the user; the rows that were found stay
        Full,    ///< there are more than kMostRows
        Busy,    ///< a scan or another search is under way; nothing has happened
    };

    /// Told while it searches, at each folder and each row, however quickly they follow.
    std::function<void()> progressed;

    /// Fills the rows anew. Events go through meanwhile, so that rows can be shown as they come; nobody can
    /// scan or change the lists until it ends.
    Outcome search();
    /// Ends the search behind the entry that is being looked at.
    void cancel() { sweep_.cancel(); }

    /// Deletes the chosen rows, with the questions, the log and the totals of a scan. What is no longer the
    /// entry that was shown, or would not be deleted by a scan any more, is left; each row's state tells.
    ScanOutcome deleteChosen();

    /// Of the search that was last.
    [[nodiscard]] const FolderSweep& sweep() const { return sweep_; }
    [[nodiscard]] std::uint64_t foldersFailed() const { return foldersFailed_; }

    PreviewRows rows;

private:
    /// The options as they are for a search: nothing is asked, nothing logged, nothing is an error.
    struct Pages : ui::WindowFrame, ui::NastyFilesPage, ui::ScanningPage {};

    void takeOptions();

    Needs needs_;
    Pages pages_;
    PreviewFileSystem files_;
    FolderSweep sweep_;
    bool full_ = false;
    std::uint64_t foldersFailed_ = 0;
};

} // namespace brovin::cleaner
