#include "app/start_up.h"

#include "text/numbers.h"

#include <algorithm>
#include <chrono>
#include <iterator>

namespace brovin::app {
namespace {

namespace box = platform::box;
namespace setting = settings::setting;
using language::Message;
using platform::Done;
using platform::Failure;
using platform::Status;

constexpr std::chrono::milliseconds kTickInterval{30500};

const Failure kOverflow{6, "Overflow"};
const Failure kInvalidValue{380, "Invalid property value"};

} // namespace

bool StartUp::run(std::optional<platform::Errand> errand) {
    errand_ = errand;
    using Step = Status (StartUp::*)();
    static constexpr Step kSteps[] = {
        &StartUp::fillLanguageList,    &StartUp::dressButtons,
        &StartUp::chooseLanguage,      &StartUp::refuseSecondInstance,
        &StartUp::beginLoading,        &StartUp::readCharacterName,
        &StartUp::rememberYesterday,   &StartUp::showStatistics,
        &StartUp::stopTimer,           &StartUp::loadLists,
        &StartUp::restoreReminderDays, &StartUp::readLogOn,
        &StartUp::readSpeechFrequency, &StartUp::restoreControls,
        &StartUp::readTotal,           &StartUp::restoreTab,
        &StartUp::startTimer,          &StartUp::restoreRules,
        &StartUp::showFolderHint,      &StartUp::enterTray,
        &StartUp::restoreReminder,     &StartUp::enableRemoveFolder,
        &StartUp::endLoading,          &StartUp::bringCharacter,
        &StartUp::startTabFrame,
    };
    const bool runs = std::all_of(std::begin(kSteps), std::end(kSteps), [this](Step step) {
        const Status outcome = (this->*step)();
        return !ended_ && (outcome || goesOn(outcome.failure()));
    });
    storedTogether_.reset();
    return runs;
}

/// A failing statement is passed over when the user wants to go on, and ends the program when not.
bool StartUp::goesOn(const Failure& failure) {
    const auto answer = needs_.machine.dialogs.messageBox(
        "An error occurred during startup.\r\n\r\n" + needs_.teller.speech.messages.reason(failure) +
            "\r\n\r\nWould you like to try and continue?",
        box::kYesNo | box::kCritical, "Error " + std::to_string(failure.number));
    if (answer != platform::Button::Yes)
        end();
    return !ended_;
}

Status StartUp::fillLanguageList() {
    needs_.language.catalogue.buildLanguageCatalogue();
    return Done{};
}

Status StartUp::dressButtons() {
    needs_.form.picAnim.setVisible(false);
    needs_.form.cmdHelp.setPicture("help");
    needs_.form.cmdExit.setPicture("close");
    return Done{};
}

Status StartUp::chooseLanguage() {
    if (needs_.form.lstLang.count() > 0) {
        const language::LanguageCatalogue& catalogue = needs_.language.catalogue;
        auto entry = catalogue.entryOf(needs_.settings.read(setting::kLanguage));
        if (isFirstStart())
            if (const auto users = catalogue.entryFor(needs_.machine.regional.languageId()))
                entry = users;
        needs_.form.lstLang.select(entry.value_or(0));
        return Done{};
    }
    // Without a language file the messages are empty, so this is said in the program's own words.
    std::string text = needs_.teller.speech.messages.getMessage(Message::NoLanguageFile);
    if (text.empty())
        text = "There is no language file in the program's folder, so I have nothing to say. "
               "Please install the program again.";
    needs_.machine.dialogs.messageBox(text, box::kCritical,
                                      needs_.teller.speech.messages.getMessage(Message::NoLanguageFileTitle));
    end();
    return Done{};
}

/// A start leaves both behind, and a scan from the command line neither.
bool StartUp::isFirstStart() const {
    return !needs_.settings.stored(setting::kLanguage) && !needs_.settings.stored(setting::kTotalDate);
}

Status StartUp::refuseSecondInstance() {
    if (needs_.machine.instance.isFirst())
        return Done{};
    // Without an icon to click, starting the program again is how the user gets at its window.
    if (!errand_ && !needs_.machine.tray.available())
        errand_ = platform::Errand::ShowWindow;
    if (errand_ && needs_.machine.instance.sendToFirst(*errand_)) {
        end();
        return Done{};
    }
    const auto& messages = needs_.teller.speech.messages;
    const std::string dude = needs_.teller.speech.phrases.getDude();
    needs_.machine.dialogs.messageBox(messages.getMessage(Message::AlreadyRunning, {dude}), box::kCritical,
                                      messages.getMessage(Message::AlreadyRunningTitle, {dude}));
    end();
    return Done{};
}

/// A second copy waits before this, for as long as its message is open, and must not store old values after
/// that.
Status StartUp::beginLoading() {
    storedTogether_.emplace(needs_.settings);
    needs_.form.loading = true;
    needs_.machine.random.seed(
        static_cast<std::uint64_t>(needs_.machine.clock.now().time_since_epoch().count()));
    return Done{};
}

Status StartUp::readCharacterName() {
    needs_.teller.actor.name = needs_.settings.read(setting::kAgentName);
    if (needs_.machine.characters.available())
        needs_.companion.host.scanCharacters();
    return Done{};
}

Status StartUp::rememberYesterday() {
    needs_.schedule.scheduler.beginDay();
    return Done{};
}

Status StartUp::showStatistics() {
    if (needs_.settings.read(setting::kTotalDate).empty())
        needs_.settings.write(setting::kTotalDate, needs_.cleaner.statistics.today());
    needs_.cleaner.statistics.updateStatistics();
    return Done{};
}

Status StartUp::stopTimer() {
    needs_.form.Timer1.setEnabled(false);
    return Done{};
}

Status StartUp::loadLists() {
    needs_.cleaner.nastyFiles.load();
    needs_.cleaner.keepList.load();
    needs_.cleaner.watchedFolders.load();
    needs_.form.cmdRemoveFile.setEnabled(false);
    return Done{};
}

Status StartUp::restoreReminderDays() {
    const bool weekly = needs_.settings.read(setting::kWeekly) == "1";
    needs_.form.optWeekly.setValue(weekly);
    needs_.form.optDaily.setValue(!weekly);
    return Done{};
}

Status StartUp::readLogOn() {
    needs_.form.chkStartWindows.setValue(needs_.logOn.starts() ? ui::CheckBox::kOn : ui::CheckBox::kOff);
    return Done{};
}

Status StartUp::readSpeechFrequency() {
    const auto frequency = text::leadingInt16(needs_.settings.read(setting::kSpeechFreq));
    if (!frequency && !goesOn(kOverflow))
        return Done{};
    if (!frequency)
        needs_.settings.write(setting::kSpeechFreq, std::string(setting::kSpeechFreq.fallback));
    needs_.speechFrequency.speechFreq =
        frequency.value_or(text::leadingInt16(setting::kSpeechFreq.fallback).value_or(0));
    needs_.speechFrequency.drawSpeechFreq();
    return Done{};
}

Status StartUp::restoreControls() {
    for (const StoredControl& row : storedControls())
        restoreRow(row);
    return Done{};
}

/// A value that its control refuses would be asked about at each start: in its place goes the default.
void StartUp::restoreRow(const StoredControl& row) {
    if (ended_)
        return;
    if (row.setting == &setting::kAgent && !needs_.machine.characters.available()) {
        switchCharacterOff();
        return;
    }
    if (row.setting == &setting::kUpdateOnStart && needs_.machine.updates == nullptr)
        return; // stays off, and what is stored is kept for a build that asks
    const Status outcome = restore(needs_.form, row, needs_.settings.read(*row.setting));
    if (outcome || !goesOn(outcome.failure()))
        return;
    static_cast<void>(restore(needs_.form, row, std::string(row.setting->fallback)));
    needs_.settings.write(*row.setting, std::string(row.setting->fallback));
}

/// A total that has grown too large for its variable is no option: it is kept as it is.
Status StartUp::readTotal() {
    const auto kb = text::leadingInt32(needs_.settings.read(setting::kKb));
    return kb ? Status(Done{}) : Status(kOverflow);
}

Status StartUp::restoreTab() {
    const auto tab = text::leadingInt16(needs_.settings.read(setting::kTab));
    const bool shown = tab && needs_.window.imgTabs_Click(*tab);
    if (!shown && goesOn(kInvalidValue))
        needs_.window.imgTabs_Click(0);
    return Done{};
}

/// Where no character can be shown, the switch stays off, and what is stored is kept for a machine that can.
void StartUp::switchCharacterOff() {
    ui::FrmOptions& form = needs_.form;
    for (ui::Control* control : std::initializer_list<ui::Control*>{
             &form.chkAgent, &form.lstChars, &form.cmdCheckChars, &form.txtSay, &form.cmdSay, &form.lstAnims,
             &form.cmdDo, &form.cmdRepeat, &form.cmdStop, &form.picSlide})
        control->setEnabled(false);
}

Status StartUp::startTimer() {
    needs_.form.Timer1.setInterval(kTickInterval);
    needs_.cleaner.scan.lastScanTime = needs_.machine.clock.now();
    needs_.form.Timer1.setEnabled(true);
    needs_.cleaner.statistics.showLastScanned();
    return Done{};
}

Status StartUp::restoreRules() {
    for (const StoredControl& row : storedRules())
        restoreRow(row);
    return Done{};
}

Status StartUp::showFolderHint() {
    needs_.form.picAdd.setVisible(needs_.form.lstFolders.count() == 0);
    return Done{};
}

/// Whether or not there is a place for the icon yet: a panel may come later than the program.
Status StartUp::enterTray() {
    needs_.tip.addIcon(needs_.form.sbStatus.panel());
    needs_.form.window.setVisible(false);
    return Done{};
}

Status StartUp::restoreReminder() {
    needs_.form.txtReminder.setText(
        needs_.settings.stored(setting::kReminder)
            .value_or(needs_.teller.speech.messages.getMessage(Message::Reminder)));
    return Done{};
}

Status StartUp::enableRemoveFolder() {
    needs_.form.cmdRemoveFolder.setEnabled(needs_.form.lstFolders.selected() != ui::ListControl::kNone);
    return Done{};
}

Status StartUp::endLoading() {
    needs_.companion.quiet.restore();
    needs_.schedule.options.refreshReminderControls();
    needs_.form.loading = false;
    return Done{};
}

/// The chosen character comes as it was when the program ended, shown or hidden.
Status StartUp::bringCharacter() {
    if (!needs_.machine.characters.available())
        return Done{};
    needs_.companion.host.lstChars_Click();
    needs_.companion.host.chkAgent_Click();
    return Done{};
}

Status StartUp::startTabFrame() {
    ui::FrmOptions& form = needs_.form;
    form.lineTimer.setEnabled(true);
    form.imgBrovin.setHand(true);
    form.imgLogo.setHand(true);
    form.cmdExit.setHand(true);
    form.cmdHelp.setHand(true);
    return Done{};
}

} // namespace brovin::app
