#pragma once

#include <string_view>

namespace brovin::settings {

/// A key of the settings store with the text that stands for it while it is missing.
struct Setting {
    std::string_view key;
    std::string_view fallback;
};

/// The section of all keys below.
inline constexpr std::string_view kSettingsSection = "Settings";

/// Every key of the section "Settings". Check boxes are "0" or "1"; dates of the program's own are ISO 8601.
namespace setting {
inline constexpr Setting kLanguage{"Language", "default.blp"};
inline constexpr Setting kAgentName{"AgentName", "Peedy"};
inline constexpr Setting kAgentShow{"AgentShow", "True"};
inline constexpr Setting kAgentX{"AgentX", "0"};
inline constexpr Setting kAgentY{"AgentY", ""}; ///< missing: 147 pixels above the screen's lower edge
inline constexpr Setting kAgent{"Agent", "1"};
inline constexpr Setting kCharacterSize{"CharacterSize", "0"}; ///< entry of its list; 0: by the screen
inline constexpr Setting kSpeechFreq{"SpeechFreq", "25"};
inline constexpr Setting kDude{"Dude", "0"};
inline constexpr Setting kDudeSex{"DudeSex", "0"};
inline constexpr Setting kUser{"User", "Fool"};
inline constexpr Setting kCallMe{"User", ""}; ///< as it is shown: a name that is not known is empty
inline constexpr Setting kQuiet{"Quiet",
                                "0"}; ///< 1 until it is switched off, 2 for an hour, 3 until tomorrow
inline constexpr Setting kQuietUntil{"QuietUntil", ""}; ///< when 2 and 3 end
inline constexpr Setting kQuietHours{"QuietHours", "0"};
inline constexpr Setting kQuietFrom{"QuietFrom", "22:00"};
inline constexpr Setting kQuietTo{"QuietTo", "7:00"};
inline constexpr Setting kQuietFullScreen{"QuietFullScreen", "1"};
inline constexpr Setting kQuietLocked{"QuietLocked", "1"};
inline constexpr Setting kQuietDesktop{"QuietDesktop", "0"};
inline constexpr Setting kMuteVoice{"MuteVoice", "0"};
inline constexpr Setting kMuteSounds{"MuteSounds", "0"};
inline constexpr Setting kVoiceVolume{"VoiceVolume", "100"}; ///< percent, as the next
inline constexpr Setting kSoundVolume{"SoundVolume", "100"};
inline constexpr Setting kReadOut{"ReadOut", "0"};
inline constexpr Setting kBackup{"Backup", "1"};
inline constexpr Setting kBackupDate{"BackupDate", "23:00"};
inline constexpr Setting kWeekly{"Weekly", "0"};
inline constexpr Setting kReminder{"Reminder", ""}; ///< missing at start-up: message 42
inline constexpr Setting kReminderWhenDue{"Reminder", "Time to go to bed&dude&!"};
inline constexpr Setting kReminderMsgBox{"ReminderMsgBox", "1"};
inline constexpr Setting kWord{"Word", "1"};
inline constexpr Setting kWordTime{"WordTime", "9:15"};
inline constexpr Setting kWordMsgBox{"WordMsgBox", "1"};
inline constexpr Setting kCheck{"Check", "1"};
inline constexpr Setting kInterval{"Interval", "5"};
inline constexpr Setting kLastScanned{"LastScanned", ""};
inline constexpr Setting kForce{"Force", "1"};
inline constexpr Setting kConfirm{"Confirm", "0"};
inline constexpr Setting kTrash{"Trash", "0"};
inline constexpr Setting kIgnoreErrors{"IgnoreErrors", "1"};
inline constexpr Setting kLog{"Log", "1"};
inline constexpr Setting kDotDash{"DotDash", "1"};
inline constexpr Setting kIconFiles{"IconFiles", "1"};
inline constexpr Setting kSpareCarriers{"SpareCarriers", "0"};
inline constexpr Setting kTotalNuked{"TotalNuked", "0"};
inline constexpr Setting kKb{"KB", "0"};
inline constexpr Setting kTotalDate{"TotalDate", ""}; ///< missing in the statistics: today
inline constexpr Setting kTab{"Tab", "0"};
inline constexpr Setting kUpdateOnStart{"UpdateOnStart", "1"};
inline constexpr Setting kCheckFreq{"CheckFreq", "0"};
inline constexpr Setting kLastUpdateCheck{"LastUpdateCheck", ""};
inline constexpr Setting kIconHint{"IconHint", "0"}; ///< 1: has been told how to get a place for the icon
inline constexpr Setting kNoCheck{"NoCheck", ""};    ///< written, read by nobody
} // namespace setting

} // namespace brovin::settings
