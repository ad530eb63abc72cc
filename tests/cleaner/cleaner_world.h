#pragma once

#include "cleaner/cleaner.h"
#include "cleaner/preview.h"
#include "companion/teller.h"
#include "fakes/fake_machine.h"
#include "ui/frm_options.h"

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
    companion::Teller teller{{form, options, tables, dialogs, letters, random}};
    companion::Actor& actor = teller.actor;
    settings::ProgramInfo info{"Brovin", 2, 7, 106};
    ui::TrayTip tip{tray};
    Cleaner cleaner{{.pages = {form, form, form, form, form, form},
                     .tip = tip,
                     .settings = options,
                     .speech = teller.speech,
                     .actor = actor,
                     .program = info,
                     .machine = {files, landmarks, folder, scanLock, dialogs, shell, clipboard, pump, clock,
                                 regional, letters, &history}}};
    Preview preview{{form, form, form, cleaner.scan, teller.speech, cleaner.scanRun, cleaner.watchedFolders,
                     files, dialogs, pump, regional, letters}};
    ScanState& scan = cleaner.scan;
    NastyFileList& nastyFiles = cleaner.nastyFiles;
    WatchedFolderList& watchedFolders = cleaner.watchedFolders;
    FolderSweep& sweep = cleaner.sweep;
    Statistics& statistics = cleaner.statistics;
    LogCommands& logCommands = cleaner.logCommands;
    ScanRun& scanRun = cleaner.scanRun;
};

} // namespace brovin::cleaner
