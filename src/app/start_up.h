#pragma once

#include "app/run_key.h"
#include "app/schedule_options.h"
#include "app/stored_controls.h"
#include "cleaner/nasty_file_list.h"
#include "cleaner/statistics.h"
#include "cleaner/watched_folder_list.h"
#include "companion/character_host.h"
#include "language/language_catalogue.h"
#include "platform/character_service.h"
#include "platform/clock.h"
#include "platform/dialogs.h"
#include "platform/notification_area.h"
#include "platform/random.h"
#include "platform/result.h"
#include "platform/single_instance.h"
#include "settings/program_info.h"
#include "settings/settings.h"
#include "ui/frm_options.h"
#include "window/main_window.h"
#include "window/speech_frequency.h"

#include <string>

namespace brovin::app {

/// The program's start, as a list of steps in a fixed order.
class StartUp {
public:
    struct Needs {
        ui::FrmOptions& form;
        settings::Settings& settings;
        companion::Speech speech;
        companion::Actor& actor;
        companion::CharacterHost& characterHost;
        window::SpeechFrequency& speechFrequency;
        language::LanguageCatalogue& catalogue;
        cleaner::NastyFileList& nastyFiles;
        cleaner::WatchedFolderList& watchedFolders;
        cleaner::Statistics& statistics;
        ScheduleOptions& schedule;
        RunKey& runKey;
        window::MainWindow& window;
        platform::Dialogs& dialogs;
        platform::SingleInstance& instance;
        platform::NotificationArea& tray;
        platform::Random& random;
        const platform::Clock& clock;
        const platform::CharacterService& characters;
    };
    explicit StartUp(const Needs& needs) : needs_(needs) {}

    /// True: the program runs. False: it is to end, and the user has been told why.
    bool run();
    /// The steps that follow are left out, and the program ends.
    void end() { ended_ = true; }

private:
    platform::Status fillLanguageList();
    platform::Status dressButtons();
    platform::Status chooseLanguage();
    platform::Status refuseSecondInstance();
    platform::Status beginLoading();
    platform::Status readCharacterName();
    platform::Status rememberYesterday();
    platform::Status showStatistics();
    platform::Status stopTimer();
    platform::Status loadLists();
    platform::Status restoreReminderDays();
    platform::Status readRunKey();
    platform::Status readSpeechFrequency();
    platform::Status restoreControls();
    platform::Status readTotal();
    platform::Status restoreTab();
    platform::Status startTimer();
    platform::Status restoreRules();
    platform::Status showFolderHint();
    platform::Status enterTray();
    platform::Status restoreReminder();
    platform::Status enableRemoveFolder();
    platform::Status endLoading();
    platform::Status bringCharacter();
    platform::Status startTabFrame();
    platform::Status showWindowWithoutTray();

    void restoreRow(const StoredControl& row);
    void switchCharacterOff();
    /// Asks whether to go on behind a failing statement. No ends the program.
    [[nodiscard]] bool goesOn(const platform::Failure& failure);

    Needs needs_;
    bool ended_ = false;
    bool inTray_ = false;
};

} // namespace brovin::app
