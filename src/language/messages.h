#pragma once

#include <cstdint>
#include <string>

namespace brovin::language {

/// The numbered messages, each by the number that language files give it ("dlg0=…"). A comment says where a
/// message is seen, and in brackets what is filled in for "%1", "%2" …; "address" is a form of address behind
/// a comma, or nothing.
enum class Message : std::int32_t {
    AskNastyName = 0,          ///< question for a name to delete (address)
    NastyNameAdvice = 1,       ///< what such a name may be; stands below the question
    AskNastyNameTitle = 2,     ///< title of the question
    ForbiddenSigns = 3,        ///< a name was refused; the signs that it may not have stand below
    ForbiddenSignsTitle = 4,   ///< title of that box
    NastyNameTooLong = 5,      ///< a name was refused for its length (address)
    NastyNameTooLongTitle = 6, ///< title of that box

    ConfirmEmptyLog = 7,      ///< question before the log is emptied
    ConfirmEmptyLogTitle = 8, ///< title of the question
    LogEmptied = 9,           ///< mark in the emptied log, and the title of the next
    LogIsEmpty = 10,          ///< box after the log has been emptied

    ConfirmExit = 11,      ///< question before the program ends (address)
    ConfirmExitTitle = 12, ///< title of the question

    NoFolders = 13,      ///< a scan was asked for while no folder is watched
    NoFoldersTitle = 14, ///< title of that box
    SeveralDeleted = 15, ///< result of a scan (items, address)
    OneDeleted = 16,     ///< result of a scan (address)
    NothingDeleted = 17, ///< result of a scan (address)

    ConfirmRemoveName = 18,      ///< question before a name leaves its list; the name stands below (address)
    ConfirmRemoveNameTitle = 19, ///< title of the question
    ConfirmRemoveFolder = 20, ///< question before a folder leaves its list; its path stands below (address)
    ConfirmRemoveFolderTitle = 21, ///< title of the question

    NeverScanned = 22, ///< status bar: there was no scan yet
    LastScanned = 23,  ///< status bar: the last scan (time and date)
    NextScan = 24,     ///< status bar and tool tip of the interval: the next scan (time and date)

    ConfirmResetCounter = 25,      ///< question before the count goes back to 0 (items so far, address)
    ConfirmResetCounterTitle = 26, ///< title of the question

    AskingForUpdates = 27, ///< status bar while the server is asked
    NothingNewer = 28,     ///< answer to a check by hand: there is no update (address)
    NoUpdateAnswer = 29,   ///< answer to a check by hand: the server is silent
    UpdateCheckTitle = 30, ///< title of these two boxes
    VersionOffered = 31,   ///< question whether to fetch a version; the next stands behind it (address)
    OfferedVersion = 32,   ///< the version on offer (its three numbers)
    DownloadSize = 33,     ///< label of a size in kilobytes, in the question and in titles
    NewVersionTitle = 34,  ///< title of whatever is about a version on offer
    OfferCancelled = 35,   ///< status bar after a no to the question, or to the download
    PackInstalled = 36,    ///< a language pack is in its place
    PackUnusable = 37,     ///< what came was no language pack

    NoLanguageFile = 38,      ///< start-up ends: there is no language
    NoLanguageFileTitle = 39, ///< title of that box
    AlreadyRunning = 40,      ///< start-up ends: the program runs already (address)
    AlreadyRunningTitle = 41, ///< title of that box (address)

    Reminder = 42,     ///< what the reminder says until the user writes something else; a phrase with tokens
    ChooseFolder = 43, ///< above the folders to choose from

    MascotPoked1 =
        44, ///< an answer of the picture on the last page to a click (address); so are the next five
    MascotPoked2 = 45,
    MascotPoked3 = 46,
    MascotPoked4 = 47,
    MascotPoked5 = 48,
    MascotPoked6 = 49,

    SayLabel = 50, ///< caption of `lblSay` with a character (its name)
    DoLabel = 51,  ///< caption of `lblDo` with a character (its name)

    WordOfTheDay = 52,      ///< tells the word (the word, address)
    WordOfTheDayTitle = 53, ///< title of that box (the word, address)

    ScanUnderWay = 54,    ///< status bar and tip of the icon during a scan
    LogScanBegun = 55,    ///< line of the log (time, date)
    LogScanSum = 56,      ///< line of the log (items, kilobytes)
    LogScanFinished = 57, ///< line of the log (time, date)
    LogNothingFound = 58, ///< line of the log, in place of the two before
    ScanningFolder = 59,  ///< status bar (path of the folder)

    ConfirmDelete = 60,       ///< question before each deletion (path, address)
    ConfirmDeleteTitle = 61,  ///< title of the question
    LogFileDeleted = 62,      ///< line of the log (path)
    LogFolderDeleted = 63,    ///< line of the log (kilobytes, path)
    DeletionFailed = 64,      ///< question whether to give up on the folder (path)
    DeletionFailedTitle = 65, ///< title of the question

    DownloadButton = 66,        ///< caption of `cmdStart` before the download
    CancelButton = 67,          ///< caption of `cmdCancel`
    ConfirmCancelDownload = 68, ///< question before a download is cut off
    Connecting = 69,            ///< until the server answers
    DownloadNotStarted = 70,    ///< the request could not be made (number of the error, reason)
    DownloadReady = 71,         ///< before the download
    ChangesBelow = 72,          ///< in front of that when there is a list of changes, and the list's name
    DownloadProgress = 73,      ///< amounts (kilobytes come, kilobytes in all)
    DownloadComplete = 74,      ///< all has come, and can be installed
    InstallButton = 75,         ///< the button then
    DownloadTooShort = 76,      ///< the answer is too short for an update
    DownloadUntrusted = 77,     ///< what came is incomplete or not the maker's; the reason stands behind
};

[[nodiscard]] constexpr std::int32_t numberOf(Message message) {
    return static_cast<std::int32_t>(message);
}

/// Its key in a language file.
[[nodiscard]] inline std::string keyOf(Message message) {
    return "dlg" + std::to_string(numberOf(message));
}

} // namespace brovin::language
