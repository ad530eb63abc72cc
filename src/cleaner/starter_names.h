#pragma once

#include "cleaner/nasty_file_list.h"
#include "cleaner/scan_state.h"
#include "companion/speech.h"
#include "ui/pages/nasty_files_page.h"

namespace brovin::cleaner {

/// What becomes of a beginner's empty Nasty File List: the known names that may be deleted, each with what is
/// lost with it, in a window of their own. What is safe is ticked; trash folders are not offered.
class StarterNames {
public:
    struct Needs {
        ui::NastyFilesPage& nastyPage;
        const ScanState& scan;
        companion::Speech speech;
        NastyFileList& nastyFiles;
    };
    explicit StarterNames(const Needs& needs);
    StarterNames(const StarterNames&) = delete;
    StarterNames& operator=(const StarterNames&) = delete;

    /// Opens the window. Names that are on the list already are ticked and grey.
    void cmdStarter_Click();
    /// Adds the ticked names; while a scan runs the list stays as it is, and so does the window.
    void cmdAddThese_Click();

private:
    void showTexts();
    void enableAdding();

    Needs needs_;
    ui::FrmStarter& form_;
};

} // namespace brovin::cleaner
