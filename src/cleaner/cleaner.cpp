#include "cleaner/cleaner.h"

namespace brovin::cleaner {

Cleaner::Cleaner(const Needs& needs)
    : nastyFiles({.nastyPage = needs.pages.nasty,
                  .scan = scan,
                  .settings = needs.settings,
                  .speech = needs.speech,
                  .dialogs = needs.machine.dialogs,
                  .letters = needs.machine.letters}),
      starterNames(
          {.nastyPage = needs.pages.nasty, .scan = scan, .speech = needs.speech, .nastyFiles = nastyFiles}),
      keepList({.nastyPage = needs.pages.nasty,
                .scan = scan,
                .settings = needs.settings,
                .speech = needs.speech,
                .dialogs = needs.machine.dialogs,
                .letters = needs.machine.letters}),
      watchedFolders({.foldersPage = needs.pages.folders,
                      .scan = scan,
                      .settings = needs.settings,
                      .speech = needs.speech,
                      .dialogs = needs.machine.dialogs,
                      .files = needs.machine.files,
                      .landmarks = needs.machine.landmarks,
                      .letters = needs.machine.letters}),
      sweep({.frame = needs.pages.frame,
             .nastyPage = needs.pages.nasty,
             .scanningPage = needs.pages.scanning,
             .speech = needs.speech,
             .files = needs.machine.files,
             .dialogs = needs.machine.dialogs,
             .regional = needs.machine.regional,
             .letters = needs.machine.letters,
             .pump = needs.machine.pump}),
      statistics({.frame = needs.pages.frame,
                  .foldersPage = needs.pages.folders,
                  .characterPage = needs.pages.character,
                  .scan = scan,
                  .settings = needs.settings,
                  .speech = needs.speech,
                  .actor = needs.actor,
                  .clipboard = needs.machine.clipboard,
                  .clock = needs.machine.clock,
                  .regional = needs.machine.regional,
                  .program = needs.program}),
      logCommands({needs.speech, needs.machine.folder, needs.machine.shell, needs.machine.clock,
                   needs.machine.regional}),
      scanRun({.frame = needs.pages.frame,
               .foldersPage = needs.pages.folders,
               .scanningPage = needs.pages.scanning,
               .characterPage = needs.pages.character,
               .life = needs.pages.life,
               .scan = scan,
               .settings = needs.settings,
               .speech = needs.speech,
               .actor = needs.actor,
               .sweep = sweep,
               .folders = watchedFolders,
               .statistics = statistics,
               .programFolder = needs.machine.folder,
               .lock = needs.machine.lock,
               .tip = needs.tip,
               .shell = needs.machine.shell,
               .clock = needs.machine.clock,
               .regional = needs.machine.regional,
               .history = needs.machine.history}) {
    needs.pages.frame.cmdStopScan.click = [this] { scanRun.cmdStopScan_Click(); };
    tie(needs.pages.folders);
    tie(needs.pages.nasty);
    tie(needs.pages.scanning);
}

void Cleaner::tie(ui::FoldersPage& page) {
    page.cmdNuke.click = [this] { scanRun.cmdNuke_Click(); };
    page.cmdAddFolder.click = [this] { watchedFolders.cmdAddFolder_Click(); };
    page.cmdRemoveFolder.click = [this] { watchedFolders.cmdRemoveFolder_Click(); };
    page.lstFolders.click = [this] { watchedFolders.lstFolders_Click(); };
}

void Cleaner::tie(ui::NastyFilesPage& page) {
    page.cmdAddFile.click = [this] { nastyFiles.cmdAddFile_Click(); };
    page.cmdRemoveFile.click = [this] { nastyFiles.cmdRemoveFile_Click(); };
    page.cmdStarter.click = [this] { starterNames.cmdStarter_Click(); };
    page.lstFiles.click = [this] { nastyFiles.lstFiles_Click(); };
    page.cmdAddKeep.click = [this] { keepList.cmdAddKeep_Click(); };
    page.cmdRemoveKeep.click = [this] { keepList.cmdRemoveKeep_Click(); };
    page.lstKeep.click = [this] { keepList.lstKeep_Click(); };
}

void Cleaner::tie(ui::ScanningPage& page) {
    page.cmdInspect.click = [this] { logCommands.cmdInspect_Click(); };
    page.cmdEmpty.click = [this] { logCommands.cmdEmpty_Click(); };
    page.cmdResetCounter.click = [this] { statistics.cmdResetCounter_Click(); };
    page.cmdCopyNumbers.click = [this] { statistics.cmdCopyNumbers_Click(); };
}

} // namespace brovin::cleaner
