#pragma once

#include "cleaner/carried.h"
#include "cleaner/choice.h"
#include "cleaner/delete_rules.h"
#include "cleaner/keep_rules.h"
#include "cleaner/run_shares.h"
#include "companion/speech.h"
#include "platform/dialogs.h"
#include "platform/event_pump.h"
#include "platform/file_system.h"
#include "platform/letters.h"
#include "platform/program_folder.h"
#include "platform/regional.h"
#include "ui/pages/nasty_files_page.h"
#include "ui/pages/scanning_page.h"
#include "ui/pages/window_frame.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace brovin::cleaner {

/// One deletion as it came out, for reports. The texts live as long as the report is heard.
struct Deletion {
    std::string_view folder; ///< in the disk's own bytes, with a separator at its end
    std::string_view name;   ///< in the disk's own bytes
    std::string_view listed; ///< the name in lower case, as it stands on the list where it went for that
    Match match = Match::None;
    platform::EntryKind kind = platform::EntryKind::File;
    std::int32_t kb = 0;                         ///< what it counts in the totals
    std::uint64_t bytes = 0;                     ///< in the file, or in all files of the folder
    std::optional<platform::EntryFacts> facts{}; ///< of files; of the rest where they are wanted
    const Carried* carried = nullptr;            ///< of "._" files that were looked into
    bool deleted = false;
    std::string reason{}; ///< why it was not deleted

    [[nodiscard]] std::string path() const { return std::string(folder).append(name); }
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
        const platform::Letters& letters;
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

    bool wantsFacts = false; ///< deletions tell the facts of folders and icon files too
    bool looksInto = false;  ///< deletions tell what "._" files carry

    std::int16_t scanItemCount = 0;     ///< entries deleted in this run
    std::int32_t scanKB = 0;            ///< kilobytes deleted in this run
    std::uint64_t notVisited = 0;       ///< folders beyond kMostSubfolders in this run
    std::uint64_t kept = 0;             ///< entries left alone in this run because of the Keep List
    std::uint64_t spared = 0;           ///< "._" files left alone in this run because they carry something
    std::uint64_t foldersOpened = 0;    ///< folders swept in this run
    std::uint64_t entriesSeen = 0;      ///< entries looked at in this run
    std::uint64_t gone = 0;             ///< entries really deleted in this run, however many
    std::vector<std::string> strangers; ///< folders of this run that are not those that were added
    RunShares shares;                   ///< what this run has really deleted, for the score
    std::vector<std::string> trashless; ///< shown folders of this run in which something found no trash

    /// Sets the counts to nothing and takes over the names of `lstFiles` for the run. Deletions are logged
    /// there; null: nowhere. `choice`: what of all that matches is to go; null: everything.
    void beginRun(platform::LineWriter* log, Choice* choice = nullptr);
    /// Whether the run has a Keep List.
    [[nodiscard]] bool keeps() const { return !keeps_.empty(); }

    /// Whether "._" files that carry something stay.
    [[nodiscard]] bool spares() const { return needs_.nastyPage.chkSpare.checked(); }

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
    struct Level {
        std::vector<Subfolder> subfolders;
        std::size_t next = 0;
        std::size_t shownLength = 0; ///< of the paths, up to and with this folder
        std::size_t trueLength = 0;
    };

    // The way through the tree
    [[nodiscard]] bool isStranger(const std::string& truePath, std::string_view identity);
    bool isKept();
    void showFolder(std::string_view below);
    void visit(Level& level);
    bool handlePiece(std::span<const platform::Entry> entries, Level& level, std::int16_t& kb);
    bool queue(const platform::Entry& entry, Level& level);
    void descend(Level& level);
    void ascend();

    // One entry (sweep_entry.cpp)
    bool handleEntry(const platform::Entry& entry, Level& level, std::int16_t& kb);
    [[nodiscard]] bool keepsEntry(const platform::Entry& entry, Match match) const;
    bool carriesSomething(const platform::Entry& entry);
    bool deleteIcon(const platform::Entry& entry);
    bool deleteListed(const platform::Entry& entry, std::int16_t& kb);
    bool deleteListedFolder(const platform::Entry& entry, std::int16_t& kb);
    [[nodiscard]] bool confirmed(const platform::Entry& entry);
    [[nodiscard]] std::string_view causeOf(const platform::Entry& entry) const;
    platform::Status remove(const platform::Entry& entry, platform::EntryKind kind);
    platform::Result<platform::EntryFacts> look(const platform::Entry& entry);
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
    KeepRules keeps_;
    Choice* choice_ = nullptr;
    platform::LineWriter* log_ = nullptr;
    std::unique_ptr<platform::FolderWalk> walk_;
    std::vector<Level> levels_;
    std::string shownPath_; ///< of the current folder, with a separator at its end
    std::string truePath_;
    std::string entryName_; ///< the entry that the sweep is at
    Deletion deletion_;     ///< what is known of that entry's
    std::optional<Carried> carried_;
    std::size_t topLength_ = 0; ///< of the watched folder in shownPath_
    bool cancelled_ = false;
};

} // namespace brovin::cleaner
