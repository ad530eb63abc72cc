#include "app/program.h"

#include "app/mascot.h"
#include "app/run_key.h"
#include "app/schedule_options.h"
#include "app/scheduler.h"
#include "app/shut_down.h"
#include "app/start_up.h"
#include "app/stored_controls.h"
#include "cleaner/folder_sweep.h"
#include "cleaner/log_commands.h"
#include "cleaner/nasty_file_list.h"
#include "cleaner/scan_run.h"
#include "cleaner/statistics.h"
#include "cleaner/watched_folder_list.h"
#include "companion/announcer.h"
#include "companion/character_host.h"
#include "companion/phrase_engine.h"
#include "companion/speech_commands.h"
#include "language/language_catalogue.h"
#include "language/language_loader.h"
#include "settings/settings.h"
#include "text/numbers.h"
#include "ui/list_hints.h"
#include "window/speech_frequency.h"

#include <chrono>
#include <optional>
#include <utility>

namespace brovin::app {
namespace {

using ui::FrmOptions;

/// How often the frame around the chosen tab moves.
constexpr std::chrono::milliseconds kFrameInterval{150};

} // namespace

/// Everything, in the order in which it is built on what stands before it.
struct Program::Rooms {
    Rooms(const Machine& beneath, settings::ProgramInfo about, std::string command)
        : machine(beneath), info(std::move(about)), runKey(form, machine.registry, std::move(command)) {}
    ~Rooms() { machine.characters.setEvents({}); } // the machine outlives its program
    Rooms(const Rooms&) = delete;
    Rooms& operator=(const Rooms&) = delete;

    Machine machine;
    settings::ProgramInfo info;
    FrmOptions form;
    settings::Settings settings{machine.settings};
    language::LanguageTables tables;
    language::LanguageCatalogue catalogue{form, machine.folder};
    language::LanguageLoader loader{
        {form, settings, catalogue, tables, machine.folder, machine.dialogs, machine.regional}};
    companion::Actor actor;
    companion::PhraseEngine phrases{{form, settings, tables, actor, machine.regional, machine.random}};
    companion::Announcer announcer{{form, actor, phrases, machine.dialogs}};
    companion::CharacterHost characterHost{
        {form, settings, tables, actor, phrases, machine.characters, machine.regional, machine.random}};
    companion::SpeechCommands speechCommands{{form, tables, actor, phrases, announcer, machine.random}};
    window::SpeechFrequency speechFrequency{form, settings};
    companion::Speech speech{tables.messageTable, phrases, announcer};
    cleaner::NastyFileList nastyFiles{{form, settings, speech, machine.dialogs, machine.regional}};
    cleaner::WatchedFolderList watchedFolders{
        {form, settings, speech, machine.dialogs, machine.files, machine.regional}};
    cleaner::FolderSweep sweep{
        {form, speech, machine.files, machine.dialogs, machine.regional, machine.pump}};
    cleaner::Statistics statistics{
        {form, settings, speech, actor, machine.clipboard, machine.clock, machine.regional, info}};
    cleaner::ScanRun scanRun{{.form = form,
                              .settings = settings,
                              .speech = speech,
                              .actor = actor,
                              .sweep = sweep,
                              .folders = watchedFolders,
                              .statistics = statistics,
                              .programFolder = machine.folder,
                              .lock = machine.scanLock,
                              .tray = machine.tray,
                              .shell = machine.shell,
                              .clock = machine.clock,
                              .regional = machine.regional}};
    cleaner::LogCommands logCommands{
        {speech, machine.folder, machine.shell, machine.clock, machine.regional}};
    window::MainWindow window{{form, settings, machine.folder, machine.shell, machine.tray}};
    ScheduleOptions schedule{{form, settings, machine.regional}};
    Scheduler scheduler{{.form = form,
                         .settings = settings,
                         .speech = speech,
                         .actor = actor,
                         .scanRun = scanRun,
                         .statistics = statistics,
                         .tray = machine.tray,
                         .random = machine.random,
                         .clock = machine.clock,
                         .regional = machine.regional}};
    Mascot mascot{speech, machine.random};
    RunKey runKey;
    std::optional<update::UpdateCheck> updateCheck; ///< where the machine can
    ShutDown shutDown{
        {form, settings, speech, actor, scanRun, machine.characters, machine.tray, machine.shell}};
    StartUp startUp{{.form = form,
                     .settings = settings,
                     .speech = speech,
                     .actor = actor,
                     .characterHost = characterHost,
                     .speechFrequency = speechFrequency,
                     .catalogue = catalogue,
                     .nastyFiles = nastyFiles,
                     .watchedFolders = watchedFolders,
                     .statistics = statistics,
                     .schedule = schedule,
                     .runKey = runKey,
                     .window = window,
                     .dialogs = machine.dialogs,
                     .instance = machine.instance,
                     .tray = machine.tray,
                     .random = machine.random,
                     .clock = machine.clock,
                     .characters = machine.characters}};

    void tieSettings();
    void tieCleaner();
    void tieSchedule();
    void tieCharacter();
    void tieSpeech();
    void tieProgram();
    void tieUpdates();
    void tieWindow();
};

Program::Program(const Machine& machine, settings::ProgramInfo info, std::string command)
    : rooms_(std::make_unique<Rooms>(machine, std::move(info), std::move(command))) {
    rooms_->tieCleaner();
    rooms_->tieSchedule();
    rooms_->tieCharacter();
    rooms_->tieSpeech();
    rooms_->tieProgram();
    rooms_->tieUpdates();
    rooms_->tieWindow();
    rooms_->tieSettings();
}

Program::~Program() = default;

ui::FrmOptions& Program::frmOptions() {
    return rooms_->form;
}
window::MainWindow& Program::mainWindow() {
    return rooms_->window;
}
const language::MessageTable& Program::messages() const {
    return rooms_->tables.messageTable;
}
bool Program::Form_Load() {
    return rooms_->startUp.run();
}

void Program::Rooms::tieSettings() {
    tieStoring(form, settings);
    settings.refused = [this](const std::string& location) {
        machine.dialogs.messageBox(tables.messageTable.getText("settingsNotSaved", {location}),
                                   platform::box::kExclamation, info.title);
    };
}

void Program::Rooms::tieCleaner() {
    ui::tieListHints(form);
    form.cmdNuke.click = [this] { scanRun.cmdNuke_Click(); };
    form.cmdAddFile.click = [this] { nastyFiles.cmdAddFile_Click(); };
    form.cmdRemoveFile.click = [this] { nastyFiles.cmdRemoveFile_Click(); };
    form.lstFiles.click = [this] { nastyFiles.lstFiles_Click(); };
    form.cmdAddFolder.click = [this] { watchedFolders.cmdAddFolder_Click(); };
    form.cmdRemoveFolder.click = [this] { watchedFolders.cmdRemoveFolder_Click(); };
    form.lstFolders.click = [this] { watchedFolders.lstFolders_Click(); };
    form.cmdInspect.click = [this] { logCommands.cmdInspect_Click(); };
    form.cmdEmpty.click = [this] { logCommands.cmdEmpty_Click(); };
    form.cmdResetCounter.click = [this] { statistics.cmdResetCounter_Click(); };
    form.cmdCopyNumbers.click = [this] { statistics.cmdCopyNumbers_Click(); };
}

void Program::Rooms::tieSchedule() {
    form.Timer1.tick = [this] { scheduler.Timer1_Timer(); };
    form.optDaily.click = [this] { schedule.optDaily_Click(); };
    form.optWeekly.click = [this] { schedule.optWeekly_Click(); };
    form.chkBackup.click = [this] { schedule.chkBackup_Click(); };
    form.txtReminder.change = [this] { schedule.txtReminder_Change(); };
    form.dtpWord.change = [this] { schedule.dtpWord_Change(); };
    form.chkWord.click = [this] { schedule.chkWord_Click(); };
    form.txtInterval.change = [this] {
        schedule.txtInterval_Change();
        statistics.showLastScanned();
    };
}

void Program::Rooms::tieCharacter() {
    using platform::CharacterClick;
    form.chkAgent.click = [this] { characterHost.chkAgent_Click(); };
    form.lstChars.click = [this] { characterHost.lstChars_Click(); };
    form.cmdCheckChars.click = [this] { characterHost.cmdCheckChars_Click(); };
    machine.characters.setEvents(
        {.click = [this](const CharacterClick& click) { characterHost.Agent1_Click(click); },
         .dragStart = [this](const CharacterClick& /*click*/) { characterHost.Agent1_DragStart(); },
         .dragComplete = [this](const CharacterClick& /*click*/) { characterHost.Agent1_DragComplete(); },
         .hide = [this](const std::string& /*id*/, int cause) { characterHost.Agent1_Hide(cause); },
         .nextScreen = [this](const std::string& /*id*/) { characterHost.sendToNextScreen(); },
         .screensChanged = [this] { characterHost.screensChanged(); }});
    form.picSlide.mouseDown = [this](int button, double x) { speechFrequency.picSlide_MouseDown(button, x); };
    form.picSlide.mouseMove = [this](double x) { speechFrequency.picSlide_MouseMove(x); };
    form.picSlide.mouseUp = [this] { speechFrequency.picSlide_MouseUp(); };
    form.picSlide.choose = [this](int value) { speechFrequency.picSlide_Choose(value); };
    form.picSlide.resize = [this] { speechFrequency.drawSpeechFreq(); };
    form.frmFreq.mouseUp = [this](double x, double y) { speechFrequency.frmFreq_MouseUp(x, y); };
}

void Program::Rooms::tieSpeech() {
    form.cmdSay.click = [this] { speechCommands.cmdSay_Click(); };
    form.cmdDo.click = [this] { speechCommands.cmdDo_Click(); };
    form.cmdRepeat.click = [this] { speechCommands.cmdRepeat_Click(); };
    form.cmdSpeak.click = [this] { speechCommands.cmdSpeak_Click(); };
    form.cmdStop.click = [this] { speechCommands.cmdStop_Click(); };
    form.lstAnims.click = [this] { speechCommands.lstAnims_Click(); };
    form.lstAnims.gotFocus = [this] { speechCommands.lstAnims_GotFocus(); };
    form.txtSay.gotFocus = [this] { speechCommands.txtSay_GotFocus(); };
}

void Program::Rooms::tieProgram() {
    form.lstLang.click = [this] { loader.lstLang_Click(); };
    loader.loaded = [this] {
        machine.dialogs.setLanguage(text::leadingInt32(tables.langLanguageId).value_or(0));
        // What the file does not know: texts with times in them, and who speaks, and how. While the program
        // starts there is neither, and the list of characters is empty.
        statistics.showLastScanned();
        schedule.dtpWord_Change();
        characterHost.lstChars_Click();
    };
    loader.quit = [this] {
        startUp.end();
        machine.shell.endProgram();
    };
    form.chkStartWindows.click = [this] { runKey.chkStartWindows_Click(); };
    form.cmdExit.click = [this] { shutDown.cmdExit_Click(); };
    form.mPopExit.click = [this] { shutDown.cmdExit_Click(); };
}

void Program::Rooms::tieUpdates() {
    form.cmdUpdate.setEnabled(machine.updates != nullptr);
    if (machine.updates == nullptr)
        return;
    updateCheck.emplace(update::UpdateCheck::Needs{.form = form,
                                                   .settings = settings,
                                                   .messages = tables.messageTable,
                                                   .phrases = phrases,
                                                   .announcer = announcer,
                                                   .catalogue = catalogue,
                                                   .folder = machine.folder,
                                                   .dialogs = machine.dialogs,
                                                   .shell = machine.shell,
                                                   .pump = machine.pump,
                                                   .running = {info.major, info.minor, info.revision},
                                                   .machine = *machine.updates});
    form.cmdUpdate.click = [this] { updateCheck->cmdUpdate_Click(); };
    scanRun.finished = [this] { updateCheck->checkForUpdates(); };
    scheduler.checkForUpdates = [this] { updateCheck->checkForUpdates(); };
    updateCheck->replaced = [this] { shutDown.Form_Unload(); };
}

void Program::Rooms::tieWindow() {
    window.notOpened = [this](const std::string& path) {
        const language::Text text =
            path.ends_with(".url") ? language::Text("linkNotOpened") : language::Text("helpNotOpened");
        announcer.agentMsgBox(tables.messageTable.getText(text, {path}), platform::box::kInformation, "",
                              companion::ForceBox::No);
    };
    for (std::size_t i = 0; i < FrmOptions::kTabs; ++i) {
        const auto choose = [this, i] { window.imgTabs_Click(static_cast<int>(i)); };
        form.imgTabs[i].click = choose;
        form.lblTabs[i].click = choose;
        form.imgTabs[i].mouseMove = [this, i] { window.imgTabs_MouseMove(i); };
        form.picTab[i].mouseMove = [this] { window.resetPictures(); };
        form.picTab[i].setVisible(i == 0);
    }
    form.Picture1.mouseMove = [this] { window.resetPictures(); };
    form.window.mouseMove = [this] { window.resetPictures(); };
    form.cmdHelp.mouseMove = [this] { window.cmdHelp_MouseMove(); };
    form.cmdExit.mouseMove = [this] { window.cmdExit_MouseMove(); };
    form.lineTimer.setInterval(kFrameInterval);
    form.lineTimer.tick = [this] { window.lineTimer_Timer(); };
    form.window.resize = [this] { window.Form_Resize(); };
    form.window.close = [this] { window.Form_Close(); };
    form.cmdHelp.click = [this] { window.cmdHelp_Click(); };
    form.mHelp.click = [this] { window.cmdHelp_Click(); };
    form.mPopRestore.click = [this] { window.mPopRestore_Click(); };
    form.imgBrovin.click = [this] { mascot.imgBrovin_Click(); };
    form.imgLogo.click = [this] { window.imgLogo_Click(); };
    form.lblFeedback.click = [this] { window.lblFeedback_Click(); };
}

} // namespace brovin::app
