#pragma once

#include "cleaner/folder_sweep.h"
#include "cleaner/log_commands.h"
#include "cleaner/nasty_file_list.h"
#include "cleaner/scan_run.h"
#include "cleaner/statistics.h"
#include "cleaner/watched_folder_list.h"
#include "fakes/fake_machine.h"
#include "language/language_tables.h"

#include <chrono>
#include <string>
#include <vector>

namespace brovin::cleaner {

/// The cleaner on a machine in memory, on 21 November 2026 at 10:05. Each message tells its number and its
/// arguments, every box is off, both lists are empty, the window is hidden and no character is loaded.
struct CleanerWorld : fakes::FakeMachine {
    CleanerWorld() {
        for (int i = 0; i <= 77; ++i)
            tables.messageTable.set(i, "m" + std::to_string(i) + "(%1,%2)");
        clock.time = at(10, 5);
    }

    [[nodiscard]] static platform::DateTime at(int hour, int minute) {
        return std::chrono::local_days(std::chrono::year(2026) / 11 / 21) + std::chrono::hours(hour) +
               std::chrono::minutes(minute);
    }
    [[nodiscard]] static std::vector<std::string> texts(const ui::ListBox& list) {
        std::vector<std::string> texts;
        for (const auto& item : list.items())
            texts.push_back(item.text);
        return texts;
    }
    void nasty(const std::string& name) { form.lstFiles.add({name, 0}); }
    /// The user looks on, and errors are not to be passed over.
    void lookOn() { form.window.setVisible(true); }

    ui::FrmOptions form;
    settings::Settings options{settings};
    language::LanguageTables tables;
    companion::Actor actor;
    companion::PhraseEngine phrases{{form, options, tables, actor, regional, random}};
    companion::Announcer announcer{{form, actor, phrases, dialogs}};
    companion::Speech speech{tables.messageTable, phrases, announcer};
    settings::ProgramInfo info{"Brovin", 2, 7, 106};
    NastyFileList nastyFiles{{form, options, speech, dialogs, regional}};
    WatchedFolderList watchedFolders{{form, options, speech, dialogs, files, regional}};
    FolderSweep sweep{{form, speech, files, dialogs, regional, pump}};
    Statistics statistics{{form, options, speech, actor, clipboard, clock, regional, info}};
    LogCommands logCommands{{speech, folder, shell, clock, regional}};
    ScanRun scanRun{{form, options, speech, actor, sweep, watchedFolders, statistics, folder, scanLock, tray,
                     shell, clock, regional}};
};

} // namespace brovin::cleaner
