#pragma once

#include "platform/reasons.h"

#include <cstddef>
#include <string_view>

namespace brovin::language {

/// A text of the program's own beside the numbered messages.
struct TextRow {
    std::string_view name;    ///< a language file sets it under the key "text." and this
    std::string_view english; ///< stands in where the file has none; with the same places and marks
};

/// Why something of the machine failed is told by the machine in English; the rows of the last two groups
/// hold its very words (`MessageTable::reason`), where "%1" is the number of the failure.
inline constexpr TextRow kTextRows[] = {
    // Scanning and its log
    {"anotherScan", "Another scan is running at this moment. Please try again when it is done."},
    {"stopScan",
     "A scan is running, so I stay until it is done. Shall I stop it?\\n\\nWhat it has deleted by "
     "then stays deleted."},
    {"closeDuringScan",
     "A scan is running. It goes on behind my icon when you close the window. Shall I stop "
     "it?\\n\\nWhat it has deleted by then stays deleted."},
    {"goneSoFar", "%1 gone so far"},
    {"scanProgress", "Folders: %1, entries: %2, gone: %3"}, // at the icon it has few characters
    {"anotherFolder", "Another folder stands in its place"},
    {"folderReplaced", "Where %1 was when it was added, another folder stands now. It was left alone. If it "
                       "is the right one, remove it from the list and add it again."},
    {"unshownFolders", "The folder picker cannot show every folder in here, since some have names in an old "
                       "encoding. Which one do you want?"},
    {"noTrash",
     "The disk of %1 has no trash, and none can be made there. What should have gone is still there."},
    {"riskRoot", "This is the whole computer: every disk, every home and the system itself would be swept."},
    {"riskHome", "This is your home: the settings of all your programs are in it and would be swept too."},
    {"riskOthersHome", "This is the home of somebody else: what goes there is theirs."},
    {"riskSystem", "This folder belongs to the system, or holds what does: programs can stop working when "
                   "something goes from it."},
    {"riskProgram",
     "This folder is the program's own, or lies in one: it keeps its log and its language files there."},
    {"riskDisk", "This is a whole disk: everything on it would be swept, whoever it belongs to."},
    {"riskSure", "Shall it be watched all the same?\\n\\n%1"},
    {"folderAnew", "Where %1 was when it was added, a folder of the same name stands on another disk, or on "
                   "one that has been formatted or mounted anew. Is it the right one?"},
    {"logNotOpened", "The deletion log could not be opened:\\n\\n%1"},
    // The Keep List, and the preview of a scan
    {"logKept", "%1 kept by the Keep List"},
    {"logSpared", "%1 spared, because they carry something"},
    {"keepAsk", "What is never to be deleted? A name, or the full path of a file or folder."},
    {"keepAskTitle", "Keep"},
    {"keepNotUsable", "That is neither a name nor a full path."},
    {"keepRemove", "Shall this no longer be kept?\\n\\n%1"},
    {"keepRemoveTitle", "Let it go"},
    {"previewTitle", "What the next scan would delete"},
    {"previewFilter", "Show only:"},
    {"previewGroup", "Group by:"},
    {"previewTickAll", "Tick All"},
    {"previewTickNone", "Tick None"},
    {"previewKeepThis", "Keep This"},
    {"previewKeepName", "Keep This Name"},
    {"previewKeepFolder", "Keep This Folder"},
    {"previewOpenFolder", "Open Folder"},
    {"previewStop", "Stop"},
    {"previewSearchAgain", "Look Again"},
    {"previewDeleteThese", "Delete These"},
    {"previewClose", "Close"},
    {"previewSearching", "Looking: %1 found so far, in %2 folders"},
    {"previewNothing", "Nothing to delete in %1 folders."},
    {"previewFound", "%1 found, %2 ticked: %3."},
    {"previewStopped", "You stopped me before the end."},
    {"previewFull", "There are more than these %1; the rest is not shown."},
    {"previewFailed", "Folders that could not be read: %1."},
    {"previewNotVisited", "Subfolders left out, being more than %2 in one folder: %1."},
    {"previewScanRuns", "A scan is running. Please look again when it is done."},
    {"previewDeleted", "%1 deleted."},
    {"previewChanged", "%1 had changed since and stay."},
    {"previewNotDeleted", "%1 could not be deleted."},
    {"previewLeft", "%1 were left."},
    {"columnName", "Name"},
    {"columnFolder", "Folder"},
    {"columnWhy", "Why"},
    {"columnSize", "Size"},
    {"columnAge", "Age"},
    {"columnState", "State"},
    {"groupNone", "Nothing"},
    {"groupFolder", "Folder"},
    {"groupName", "Name"},
    {"whyListed", "the name %1"},
    {"whyDotDash", "begins with \"._\""},
    {"whyIcon", "icon file"},
    {"stateFound", "would go"},
    {"stateLeft", "left"},
    {"stateDeleted", "deleted"},
    {"stateFailed", "could not be deleted"},
    {"stateChanged", "has changed, left"},
    {"sizeKb", "%1 KB"},
    {"ageMinutes", "%1 min"},
    {"ageHours", "%1 h"},
    {"ageDays", "%1 d"},
    {"ageYears", "%1 y"},
    {"knownNothing", "Nothing is known of this name."},
    {"folderNotOpened", "The folder could not be opened: %1"},
    {"scoreDamaged",
     "The history of what was deleted was damaged. It was put aside, and a new one begun: %1"},
    {"scoreNotKept", "What this scan has deleted could not be added to the history of the score: %1"},
    // The windows of the score and the log: reasons, files, numbers
    {"scoreTitle", "The score"},
    {"scoreCountBy", "Count &by:"},
    {"scoreWeek", "Week"},
    {"scoreMonth", "Month"},
    {"scoreName", "Name"},
    {"scoreFolder", "Folder"},
    {"scoreItems", "Items"},
    {"scoreKilobytes", "KB"},
    {"scorePicture", "The score as a picture; the table below it has the numbers"},
    {"scoreSaveTable", "Save as &Table..."},
    {"scoreSavePicture", "Save as &Picture..."},
    {"scoreSaved", "Saved: %1"},
    {"scoreNotSaved", "It could not be saved: %1"},
    {"scoreNotRead", "The history of the score could not be read: %1"},
    {"scoreEmpty", "Nothing has been deleted yet."},
    {"logTitle", "The deletion log"},
    {"logSearch", "&Search for:"},
    {"logSearching", "Searching..."},
    {"logLines", "Lines: %1"},
    {"logLinesLast", "Lines: %1; here are the last %2"},
    // The character's menu
    {"menuNextScreen", "&Send to next monitor"},
    {"menuVoice", "&Voice"},
    {"menuSounds", "Sou&nds"},
    {"menuPercent", "%1 %"},
    {"sizeByScreen", "By the screen"},
    // The list of characters: why one cannot be had
    {"characterUnreadable", "This file cannot be read."},
    {"characterIsNone", "This file is not a character."},
    {"characterUnsupported", "This character was made for another generation of programs."},
    {"characterTooLarge", "This file is larger than a character can be."},
    {"characterDamaged", "This file is damaged."},
    // What happened while it was quiet: when, and what
    {"whileQuiet", "While it was quiet (%1): %2"},
    // The desktop
    {"noPlaceForIcon",
     "This desktop has no place for my icon, so you find my window in the task bar. To get one, "
     "add a notification area to your panel, or your desktop's extension for indicators."},
    {"manualPage", "index.html"}, // the manual's first page, for desktops without a viewer for the whole
    {"helpNotOpened", "The manual could not be opened:\\n\\n%1"},
    {"linkNotOpened", "This address could not be opened:\\n\\n%1"},
    // Settings: where they are; where the copy is
    {"settingsNotSaved",
     "Your settings could not be saved in %1.\\n\\nWhat you change holds until the program "
     "ends. Please check that the file can be written and that its disk is not full."},
    {"settingsDamaged",
     "Some lines of your settings file cannot be read. What can be read is used; a copy of "
     "the file as it was is kept in\\n\\n%1"},
    // Updates: 1 is a reason, 2 a file; of the first two, 1 and 2 are versions
    {"updateOlder", "It is older than your version %1."},
    {"updateOlderSure", "Do you really want to go back from version %1 to version %2?"},
    {"updateByHand",
     "This copy of Brovin has no key to prove its maker by, so it starts no installer. The page has "
     "the new version."},
    {"updateOpenPage", "&Open the Page"},
    {"updatesElsewhere", "My updates come with your system's"},
    {"updatesElsewhereTip",
     "This copy of Brovin asks nobody for updates. They come with those of your system."},
    {"updateNotStarted",
     "The update could not be started: %1.\\n\\nIt is kept in %2 until the next download."},
    {"packNotTaken", "The language pack was not taken, and the old one stays.\\n\\n%1"},
    {"didNotCome", "It did not come: %1."},
    {"connectionBroke", "The connection broke: %1."},
    {"tooMuchCame", "More came than the server had announced."},
    {"tooLittleCame", "Less came than the server had announced."},
    {"diskRefused", "The disk did not take it: %1."},
    {"diskTookLess", "The disk did not take all of it."},
    {"notReadAgain", "It cannot be read again: %1."},
    {"signatureMissing", "The server has no signature for it."},
    {"signatureUnreadable", "Its signature cannot be read."},
    {"signatureForged", "Its signature is not the maker's."},
    {"signatureOtherFile", "Its signature is for another file than the one on offer."},
    {"signatureOtherVersion", "Its signature is for another version than the one on offer."},
    {"signatureOtherSize", "Its signature is for another size than the one on offer."},
    {"notTheSignedSize", "It has another size than the one that was signed."},
    {"notTheSignedFile", "It is not the file that was signed."},
    // What systems leave behind, and what goes with it
    {"knownDsStore",
     "The Mac's Finder made it: how the window of this folder looked. Safe to delete; it will be back."},
    {"knownThumbs", "Windows made it: small pictures of the files beside it. Safe to delete; they are drawn "
                    "again when needed."},
    {"knownFsEvents", "The Mac made it: a diary of changes on this disk. Safe to delete; its next backup "
                      "looks at every file once."},
    {"knownSpotlight",
     "The Mac's search made it: its index of this disk. Safe to delete; it is built again."},
    {"knownTemporary",
     "The Mac put files here while it worked on them. Safe to delete when nobody is saving at this moment."},
    {"knownApDisk", "The Mac made it: what it shares of this disk. Safe to delete."},
    {"knownStationThumbs",
     "A network disk made it: small pictures for its photo viewer. Safe to delete; they are drawn again."},
    {"knownDesktopIni", "Windows reads it: the icon, the name and the view that somebody chose for this "
                        "folder. That choice goes with it."},
    {"knownAppleDouble", "A file server keeps here what Mac files carry beside their contents: old fonts, "
                         "tags, comments. All of that goes with it."},
    {"knownMacOsx", "Unpacked from a Mac's archive: what its files carried beside their contents. Mostly "
                    "nothing, sometimes an old font."},
    {"knownVersions", "The Mac keeps older versions of documents here. Whoever wants one back will miss it."},
    {"knownVolumeIcon", "The picture that somebody gave this disk on a Mac. It goes with it."},
    {"knownIndexWish", "Somebody put it here so that a Mac does not search this disk. Without it, it will."},
    {"knownEaDir", "A network disk made it: small pictures, and what Mac files carry beside their contents. "
                   "The pictures come back, the rest does not."},
    {"knownAppleServer",
     "A file server for Macs works with it. Delete it only while that server stands still."},
    {"knownDirectory", "A Linux file manager made it: the icon and the view that somebody chose for this "
                       "folder. That choice goes with it."},
    {"knownTrash",
     "A trash folder: what somebody threw away and may want back. It is not clutter, and not offered."},
    // The window that suggests names, and what leads to it
    {"noNamesYet",
     "There are no names on the list yet. \"Suggest Names...\" knows some that other systems leave behind."},
    {"starterTitle", "Names to begin with"},
    {"starterIntro",
     "Other systems leave these files and folders on disks that they share with yours. Tick what "
     "I shall delete wherever I meet it."},
    {"starterSafe", "Safe: whoever made them makes them again"},
    {"starterCaution", "With caution: something that somebody chose or made goes with them"},
    {"starterNoTrash",
     "Trash folders (.trashes, $recycle.bin and the like) are not among them: what somebody "
     "threw away he may want back."},
    {"starterAdd", "&Add These"},
    {"close", "&Close"},
    // What a "._" file carries: bytes; a name and bytes
    {"knownDotUnderscore", "The half of a Mac file that holds everything but its contents."},
    {"knownIcon", "The picture that somebody gave this folder on a Mac. It goes with it."},
    {"carriesNothing", "Nothing is lost with it."},
    {"carriesDamaged", "It is damaged; what it carries cannot be told."},
    {"carriesUnknown", "It is no file of a Mac's, or cannot be read: it may be somebody's own."},
    {"carriesResourceFork", "a resource fork of %1 bytes"},
    {"carriesFinderInfo", "the Finder's label or place"},
    {"carriesTags", "tags"},
    {"carriesComment", "a comment"},
    {"carriesAttribute", "%1 (%2 bytes)"},
    {"carriesOther", "%1 parts of an older system"},
    // Reasons of the program
    {"reasonOverflow", "Overflow"},
    {"reasonInvalidValue", "Invalid property value"},
    {"reasonNoInstaller", platform::reason::kNoInstaller},
    // Reasons of the machine beneath an update
    {"reasonNoProgram", platform::reason::kNoProgram},
    {"reasonNoChance", platform::reason::kNoChance},
    {"reasonNoHistory", platform::reason::kNoHistory},
    {"reasonNoRequests", platform::reason::kNoRequests},
    {"reasonOthersFolder", platform::reason::kOthersFolder},
    {"reasonNothingSaid", platform::reason::kNothingSaid},
    {"reasonOtherRequest", platform::reason::kOtherRequest},
    {"reasonTooLong", platform::reason::kTooLong},
    {"reasonTooSlow", platform::reason::kTooSlow},
    {"reasonSilent", platform::reason::kSilent},
    {"reasonEnding", platform::reason::kEnding},
    {"reasonUnsafeAddress", platform::reason::kUnsafeAddress},
    {"reasonLedOn", platform::reason::kLedOn},
    {"reasonLedAstray", platform::reason::kLedAstray},
    {"reasonAnswered", platform::reason::kAnswered},
    {"reasonTooMuch", platform::reason::kTooMuch},
    {"reasonTooLittle", platform::reason::kTooLittle},
};

/// One of the rows, by its name; a name without a row does not compile.
class Text {
public:
    consteval Text(const char* name) {
        while (kTextRows[row_].name != name)
            ++row_; // past the last row: no constant expression
    }
    [[nodiscard]] constexpr std::size_t row() const { return row_; }
    friend bool operator==(const Text&, const Text&) = default;

private:
    std::size_t row_ = 0;
};

} // namespace brovin::language
