#pragma once

#include "cleaner/delete_rules.h"
#include "companion/speech.h"
#include "platform/dialogs.h"
#include "platform/event_pump.h"
#include "platform/file_system.h"
#include "platform/program_folder.h"
#include "platform/regional.h"
#include "ui/pages/nasty_files_page.h"
#include "ui/pages/scanning_page.h"
#include "ui/pages/window_frame.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <vector>

namespace brovin::cleaner {

/// One deletion as it came out, for reports.
struct Deletion {
    std::string path; ///< in the disk's own bytes
    platform::EntryKind kind = platform::EntryKind::File;
    std::int32_t kb = 0; ///< what it counts in the totals
    bool deleted = false;
    std::string reason; ///< why it was not deleted
};

/// Deletes what matches in a folder and in every folder below it. Folders below are visited after all entries
/// of their parent, at most kMostSubfolders of each.
class FolderSweep {
public:
    static constexpr std::size_t kMostSubfolders = 501;

    struct Needs {
        ui::WindowFrame& frame;
        const ui::NastyFilesPage& nastyPage;
        const ui::ScanningPage& scanningPage;
        companion::Speech speech;
        platform::FileSystem& files;
        platform::Dialogs& dialogs;
        const platform::Regional& regional;
        platform::EventPump& pump;
    };
    explicit FolderSweep(const Needs& needs) : needs_(needs), names_({}) {}

    /// Told after each deletion that was tried.
    std::function<void(const Deletion&)> deletionTried;
    /// Told at each folder, each piece of a long listing and each deletion, however quickly they follow.
    std::function<void()> progressed;
    /// Told when a folder, given in the disk's own bytes, could not be swept, and why.
    std::function<void(const std::string& path, const std::string& reason)> folderFailed;

    /// Told some times a second while a slow disk lets the sweep wait for a folder of this one.
    std::function<void(const std::string& path)> waiting;

    std::int16_t scanItemCount = 0;     ///< entries deleted in this run
    std::int32_t scanKB = 0;            ///< kilobytes deleted in this run
    std::uint64_t notVisited = 0;       ///< folders beyond kMostSubfolders in this run
    std::uint64_t foldersOpened = 0;    ///< folders swept in this run
    std::uint64_t entriesSeen = 0;      ///< entries looked at in this run
    std::uint64_t gone = 0;             ///< entries really deleted in this run, however many
    std::vector<std::string> strangers; ///< folders of this run that are not those that were added
    std::vector<std::string> trashless; ///< shown folders of this run in which something found no trash

    /// Sets the counts to nothing and takes over the names of `lstFiles` for the run. Deletions are logged
    /// there; null: nowhere.
    void beginRun(platform::LineWriter* log);

    /// Ends the run behind the entry that is being worked on; what is left is not looked at. May be called by
    /// whatever the event pump lets through.
    void cancel() { cancelled_ = true; }
    [[nodiscard]] bool cancelled() const { return cancelled_; }
    /// The folder in work, for the user's eyes; of kMostShownPath bytes at most.
    [[nodiscard]] std::string folderInWork() const { return shown(""); }

    /// Sweeps one folder tree. `shownPath` is what the user sees, `truePath` where it is.
    /// `identity`: what the folder was when it was added to the list. Where another one stands in its place,
    /// nothing is swept, and `strangers` tells.
    void sweepFolder(const std::string& shownPath, const std::string& truePath,
                     std::string_view identity = {});

private:
    struct Subfolder {
        std::string name;
        std::string trueName;
    };
    /// A folder on the way from the top to where the sweep is.
    [[nodiscard]] bool isStranger(const std::string& truePath, std::string_view identity);
    struct Level {
        std::vector<Subfolder> subfolders;
        std::size_t next = 0;
        std::size_t shownLength = 0; ///< of the paths, up to and with this folder
        std::size_t trueLength = 0;
    };

    void showFolder(std::string_view below);
    void visit(Level& level);
    bool handlePiece(std::span<const platform::Entry> entries, Level& level, std::int16_t& kb);
    bool handleEntry(const platform::Entry& entry, Level& level, std::int16_t& kb);
    bool deleteIcon(const platform::Entry& entry);
    bool deleteListed(const platform::Entry& entry, std::int16_t& kb);
    bool deleteListedFolder(const platform::Entry& entry, std::int16_t& kb);
    bool queue(const platform::Entry& entry, Level& level);
    void descend(Level& level);
    void ascend();

    bool confirmed(const platform::Entry& entry);
    platform::Status remove(const platform::Entry& entry, platform::EntryKind kind);
    platform::Status tryDeletion(const platform::Entry& entry, platform::EntryKind kind, std::int32_t kb);
    platform::Status writeLog(const std::string& line);
    platform::Status addKilobytes(std::int32_t kb);
    platform::Status countItem();
    void progress() const;
    [[nodiscard]] std::string shown(std::string_view name) const;
    /// The statement's outcome. True: go on with the next one; false: the user ends the work on this folder.
    bool goOn(const platform::Status& statement);

    Needs needs_;
    NameSet names_;
    platform::LineWriter* log_ = nullptr;
    std::unique_ptr<platform::FolderWalk> walk_;
    std::vector<Level> levels_;
    std::string shownPath_; ///< of the current folder, with a separator at its end
    std::string truePath_;
    std::string entryName_; ///< the entry that the sweep is at
    bool cancelled_ = false;
};

} // namespace brovin::cleaner
