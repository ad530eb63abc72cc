#pragma once

#include "app/log_on.h"
#include "app/machine.h"
#include "app/schedule.h"
#include "app/stored_controls.h"
#include "cleaner/cleaner.h"
#include "companion/companion.h"
#include "language/language.h"
#include "window/main_window.h"
#include "window/speech_frequency.h"

#include <optional>

namespace brovin::app {

/// The program's start, as a list of steps in a fixed order.
class StartUp {
public:
    struct Needs {
        ui::FrmOptions& form;
        settings::Settings& settings;
        language::Language& language;
        companion::Teller& teller;
        companion::Companion& companion;
        cleaner::Cleaner& cleaner;
        Schedule& schedule;
        window::SpeechFrequency& speechFrequency;
        window::MainWindow& window;
        const LogOn& logOn;
        ui::TrayTip& tip;
        const Machine& machine;
    };
    explicit StartUp(const Needs& needs) : needs_(needs) {}

    /// `errand` goes to the copy that runs already, if one does. True: the program runs. False: it is to end,
    /// and the user has been told why.
    bool run(std::optional<platform::Errand> errand);
    /// The steps that follow are left out, and the program ends.
    void end() { ended_ = true; }

private:
    [[nodiscard]] bool isFirstStart() const;
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
    platform::Status readLogOn();
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

    void restoreRow(const StoredControl& row);
    void switchCharacterOff();
    /// Asks whether to go on behind a failing statement. No ends the program.
    [[nodiscard]] bool goesOn(const platform::Failure& failure);

    Needs needs_;
    std::optional<platform::Errand> errand_;
    bool ended_ = false;
    std::optional<settings::Settings::Together>
        storedTogether_; ///< what the steps restore, and so store again
};

} // namespace brovin::app
