#include "app/program.h"

#include "app/log_on.h"
#include "app/mascot.h"
#include "app/schedule.h"
#include "app/shut_down.h"
#include "app/start_up.h"
#include "app/stored_controls.h"
#include "cleaner/cleaner.h"
#include "cleaner/preview.h"
#include "cleaner/preview_window.h"
#include "companion/companion.h"
#include "language/language.h"
#include "text/numbers.h"
#include "ui/list_hints.h"
#include "update/updates.h"
#include "window/speech_frequency.h"

#include <utility>

namespace brovin::app {

/// Everything, in the order in which it is built on what stands before it. Each room ties its own controls;
/// what is tied here leads from one room to another.
struct Program::Rooms {
    Rooms(const Machine& beneath, settings::ProgramInfo about, std::string command);
    Rooms(const Rooms&) = delete;
    Rooms& operator=(const Rooms&) = delete;

    Machine machine;
    settings::ProgramInfo info;
    ui::FrmOptions form;
    settings::Settings settings{machine.settings};
    ui::TrayTip tip{machine.tray};
    language::Language language{{form, settings, machine.folder, machine.dialogs, machine.letters}};
    companion::Teller teller{
        {form, settings, language.tables, machine.dialogs, machine.letters, machine.random}};
    companion::Companion companion{{form, form, form, form, form},
                                   {form, settings, language.tables, teller, machine.characters,
                                    machine.gallery, machine.surroundings, machine.clock, machine.regional,
                                    machine.letters, machine.random}};
    cleaner::Cleaner cleaner{
        {.pages = {form, form, form, form, form, form},
         .tip = tip,
         .settings = settings,
         .speech = teller.speech,
         .actor = teller.actor,
         .program = info,
         .machine = {machine.files, machine.landmarks, machine.folder, machine.scanLock, machine.dialogs,
                     machine.shell, machine.clipboard, machine.pump, machine.clock, machine.regional,
                     machine.letters, machine.history}}};
    ui::FrmPreview frmPreview;
    cleaner::Preview preview{{form, form, form, cleaner.scan, teller.speech, cleaner.scanRun,
                              cleaner.watchedFolders, machine.files, machine.dialogs, machine.pump,
                              machine.regional, machine.letters}};
    cleaner::PreviewWindow previewWindow{{frmPreview, form, cleaner.scan, teller.speech, preview,
                                          cleaner.keepList, machine.files, machine.shell, machine.pump,
                                          machine.clock, machine.regional, machine.letters}};
    window::SpeechFrequency speechFrequency{form, settings};
    window::MainWindow window{{form, settings, machine.folder, machine.shell, machine.tray}};
    Schedule schedule{{form, settings, teller.speech, teller.actor, companion.quiet, companion.news, cleaner,
                       speechFrequency, tip, machine.random, machine.clock, machine.regional}};
    Mascot mascot{teller.speech, machine.random};
    LogOn logOn;
    update::Updates updates;
    ShutDown shutDown{{form, settings, teller.speech, teller.actor, cleaner, machine.characters, machine.tray,
                       machine.shell}};
    StartUp startUp{{form, settings, language, teller, companion, cleaner, schedule, speechFrequency, window,
                     logOn, tip, machine}};

    void tieLanguage();
    void tieUpdates();
};

Program::Rooms::Rooms(const Machine& beneath, settings::ProgramInfo about, std::string command)
    : machine(beneath), info(std::move(about)), logOn(form, machine.logOn, std::move(command)),
      updates({form, form, form, form.Timer1, settings, language.tables.messageTable, teller.phrases,
               teller.announcer, language.catalogue, machine.folder, machine.dialogs, machine.shell,
               machine.pump, info},
              machine.updates) {
    form.imgBrovin.click = [this] { mascot.imgBrovin_Click(); };
    form.chkStartWindows.click = [this] { logOn.chkStartWindows_Click(); };
    form.cmdExit.click = [this] { shutDown.cmdExit_Click(); };
    form.window.close = [this] {
        shutDown.closing();
        window.Form_Close();
    };
    form.cmdPreview.click = [this] { previewWindow.cmdPreview_Click(); };
    form.mPopExit.click = [this] { shutDown.cmdExit_Click(); };
    ui::tieListHints(form);
    tieLanguage();
    tieUpdates();
    tieStoring(form, settings); // behind what the rooms have tied to the same controls
    window.notOpened = [this](const std::string& path) {
        const language::Text text =
            path.ends_with(".url") ? language::Text("linkNotOpened") : language::Text("helpNotOpened");
        teller.announcer.agentMsgBox(language.tables.messageTable.getText(text, {path}),
                                     platform::box::kInformation, "", companion::ForceBox::No);
    };
    settings.refused = [this](const std::string& location) {
        machine.dialogs.messageBox(language.tables.messageTable.getText("settingsNotSaved", {location}),
                                   platform::box::kExclamation, info.title);
    };
}

void Program::Rooms::tieLanguage() {
    language.loader.loaded = [this] {
        machine.dialogs.setLanguage(text::leadingInt32(language.tables.langLanguageId).value_or(0));
        // What the file does not know: texts with times in them, and who speaks, and how. While the program
        // starts there is neither, and the list of characters is empty.
        cleaner.statistics.showLastScanned();
        cleaner.nastyFiles.tellKnown();
        schedule.options.dtpWord_Change();
        companion.size.nameSizes();
        companion.host.lstChars_Click();
        form.lstChars.renewCards();
        updates.tellWhoUpdates();
    };
    language.loader.quit = [this] {
        startUp.end();
        machine.shell.endProgram();
    };
}

void Program::Rooms::tieUpdates() {
    form.cmdUpdate.click = [this] {
        if (!cleaner.scan.busy()) // which ends with a check
            updates.cmdUpdate_Click();
    };
    cleaner.scanRun.finished = [this] { updates.checkForUpdates(); };
    schedule.scheduler.checkForUpdates = [this] { updates.checkForUpdates(); };
    updates.replaced = [this] { shutDown.Form_Unload(); };
}

Program::Program(const Machine& machine, settings::ProgramInfo info, std::string command)
    : rooms_(std::make_unique<Rooms>(machine, std::move(info), std::move(command))) {}

Program::~Program() = default;

ui::FrmOptions& Program::frmOptions() {
    return rooms_->form;
}
ui::FrmPreview& Program::frmPreview() {
    return rooms_->frmPreview;
}
window::MainWindow& Program::mainWindow() {
    return rooms_->window;
}
const language::MessageTable& Program::messages() const {
    return rooms_->language.tables.messageTable;
}
bool Program::Form_Load(std::optional<platform::Errand> errand) {
    return rooms_->startUp.run(errand);
}
void Program::serve(platform::Errand errand) {
    ui::FrmOptions& form = rooms_->form;
    switch (errand) {
    case platform::Errand::ShowWindow:
        form.mPopRestore.click();
        break;
    case platform::Errand::ScanNow:
        form.cmdNuke.click();
        break;
    case platform::Errand::SwitchQuiet:
        form.mQuiet.setValue(form.mQuiet.checked() ? ui::CheckBox::kOff : ui::CheckBox::kOn);
        break;
    }
}

} // namespace brovin::app
