#pragma once

#include "cleaner/folder_sweep.h"
#include "cleaner/keep_list.h"
#include "cleaner/log_commands.h"
#include "cleaner/nasty_file_list.h"
#include "cleaner/scan_run.h"
#include "cleaner/scan_state.h"
#include "cleaner/starter_names.h"
#include "cleaner/statistics.h"
#include "cleaner/watched_folder_list.h"

namespace brovin::cleaner {

/// The cleaner put together: the lists, the scan, its log and its numbers, tied to their pages.
class Cleaner {
public:
    /// What of the machine it works with.
    struct Machine {
        platform::FileSystem& files;
        const platform::Landmarks& landmarks;
        platform::ProgramFolder& folder;
        platform::ScanLock& lock;
        platform::Dialogs& dialogs;
        platform::Shell& shell;
        platform::Clipboard& clipboard;
        platform::EventPump& pump;
        const platform::Clock& clock;
        const platform::Regional& regional;
        const platform::Letters& letters;
        platform::DeletionHistory* history = nullptr; ///< null: none is kept
    };
    /// What of the form.
    struct Pages {
        ui::WindowFrame& frame;
        ui::FoldersPage& folders;
        ui::NastyFilesPage& nasty;
        ui::ScanningPage& scanning;
        const ui::CharacterPage& character;
        const ui::ProgramLife& life;
    };
    struct Needs {
        Pages pages;
        ui::TrayTip& tip;
        settings::Settings& settings;
        companion::Speech speech;
        companion::Actor& actor;
        const settings::ProgramInfo& program;
        Machine machine;
    };
    explicit Cleaner(const Needs& needs);
    Cleaner(const Cleaner&) = delete;
    Cleaner& operator=(const Cleaner&) = delete;

    ScanState scan;
    NastyFileList nastyFiles;
    StarterNames starterNames;
    KeepList keepList;
    WatchedFolderList watchedFolders;
    FolderSweep sweep;
    Statistics statistics;
    LogCommands logCommands;
    ScanRun scanRun;

private:
    void tie(ui::FoldersPage& page);
    void tie(ui::NastyFilesPage& page);
    void tie(ui::ScanningPage& page);
};

} // namespace brovin::cleaner
