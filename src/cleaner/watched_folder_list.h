#pragma once

#include "cleaner/folder_sweep.h"
#include "cleaner/scan_state.h"
#include "cleaner/stored_list.h"
#include "companion/speech.h"
#include "platform/dialogs.h"
#include "platform/file_system.h"
#include "platform/letters.h"
#include "settings/settings.h"
#include "ui/pages/folders_page.h"

#include <optional>
#include <string>
#include <vector>

namespace brovin::cleaner {

/// The folders that are swept: the list, its buttons and its place in the store. The list shows a folder in
/// lower case and the true spelling is kept beside it. The user cannot edit it while a scan runs.
class WatchedFolderList {
public:
    struct Needs {
        ui::FoldersPage& foldersPage;
        const ScanState& scan;
        settings::Settings& settings;
        companion::Speech speech;
        platform::Dialogs& dialogs;
        platform::FileSystem& files;
        const platform::Letters& letters;
    };
    explicit WatchedFolderList(const Needs& needs) : needs_(needs) {}

    /// Fills `lstFolders` from the store.
    void load();
    /// Fills `lstFolders` with folders in their true spelling, and stores nothing.
    void show(const std::vector<std::string>& paths);

    /// Where the folder of an entry is. nullopt: its spelling is not known, and no folder or more than one
    /// fits.
    [[nodiscard]] std::optional<std::string> truePath(std::size_t index) const;

    /// Hands the folder of an entry to a sweep.
    void sweep(std::size_t index, FolderSweep& sweep) const;

    void cmdAddFolder_Click();
    void cmdRemoveFolder_Click();
    void lstFolders_Click();

private:
    void save();
    void fill(std::vector<ListEntry> entries);
    void showHint();
    [[nodiscard]] std::string identityOf(const std::string& path) const;

    Needs needs_;
    std::vector<std::string> paths_;      ///< beside the items of `lstFolders`; empty: not known
    std::vector<std::string> identities_; ///< beside them
};

} // namespace brovin::cleaner
