#pragma once

#include "cleaner/folder_sweep.h"
#include "cleaner/scan_state.h"
#include "cleaner/stored_list.h"
#include "companion/speech.h"
#include "platform/dialogs.h"
#include "platform/file_system.h"
#include "platform/landmarks.h"
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
        const platform::Landmarks& landmarks;
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

    /// Of a folder (its true path) in whose place the sweep found another one: where that stands on another
    /// disk, or on one formatted or hung in anew, the user is asked about it, once, and on Yes it is the
    /// right one from here on. False: it is nothing to ask about.
    bool askWhetherRight(const std::string& path);

    void cmdAddFolder_Click();
    void cmdRemoveFolder_Click();
    void lstFolders_Click();

private:
    [[nodiscard]] bool wanted(const std::string& path) const;
    void save();
    void fill(std::vector<ListEntry> entries);
    void showHint();
    [[nodiscard]] std::optional<platform::FolderIdentity> identityOf(const std::string& path) const;

    Needs needs_;
    std::vector<std::string> paths_;      ///< beside the items of `lstFolders`; empty: not known
    std::vector<std::string> identities_; ///< beside them
    std::vector<std::string> refused_;    ///< beside them
};

} // namespace brovin::cleaner
