#include "headless/scan_command.h"

#include "cleaner/folder_sweep.h"
#include "cleaner/nasty_file_list.h"
#include "cleaner/scan_run.h"
#include "cleaner/statistics.h"
#include "cleaner/watched_folder_list.h"
#include "companion/announcer.h"
#include "companion/phrase_engine.h"
#include "headless/preview.h"
#include "headless/scan_report.h"
#include "language/language_catalogue.h"
#include "language/language_loader.h"
#include "settings/settings.h"
#include "text/numbers.h"

#include <algorithm>
#include <ostream>
#include <utility>

namespace brovin::headless {
namespace {

namespace setting = settings::setting;
using cleaner::ScanOutcome;
using ui::FrmOptions;

/// The options that a scan obeys.
struct Box {
    ui::CheckBox FrmOptions::*box;
    const settings::Setting* setting;
};
constexpr Box kBoxes[] = {
    {&FrmOptions::chkConfirm, &setting::kConfirm},
    {&FrmOptions::chkForce, &setting::kForce},
    {&FrmOptions::chkIgnoreErrors, &setting::kIgnoreErrors},
    {&FrmOptions::chkLog, &setting::kLog},
    {&FrmOptions::chkDotDash, &setting::kDotDash},
    {&FrmOptions::chkIcon, &setting::kIconFiles},
    {&FrmOptions::chkDude, &setting::kDude},
};

/// Stops the sweep when the user wants that, or when nobody reads any more what it says.
class StopPump final : public platform::EventPump {
public:
    StopPump(const std::function<int()>& stopSignal, const std::ostream& out)
        : stopSignal_(stopSignal), out_(out) {}

    std::function<void()> stop;

    void pump() override {
        if (!out_ || (stopSignal_ && stopSignal_() != 0))
            stop();
    }

private:
    const std::function<int()>& stopSignal_;
    const std::ostream& out_;
};

/// The part of the program that a scan needs, on a machine with a console.
class ScanProgram {
public:
    ScanProgram(const ScanOptions& options, const ScanMachine& machine, const Console& console,
                const settings::ProgramInfo& program)
        : options_(options), machine_(machine), console_(console), program_(program) {}

    ExitStatus run();

private:
    bool chooseLanguage();
    bool useLanguage(const std::string& file);
    void restoreOptions();
    void applySwitches();
    void fillLists();

    const ScanOptions& options_;
    ScanMachine machine_;
    Console console_;
    const settings::ProgramInfo& program_;

    PreviewFileSystem previewFiles_{machine_.files};
    // A damaged file stays as it is until the window tells the user: the next scan is to be as careful.
    ScanSettings store_{machine_.settings, options_.dryRun || machine_.settingsDamaged
                                               ? ScanSettings::Stores::Nothing
                                               : ScanSettings::Stores::Totals};
    platform::FileSystem& files_ =
        options_.dryRun ? static_cast<platform::FileSystem&>(previewFiles_) : machine_.files;
    ConsoleDialogs dialogs_{console_};
    NoDialogs noDialogs_;
    NoShell shell_;
    NoClipboard clipboard_;
    NoNotificationArea tray_;
    StopPump pump_{machine_.stopSignal, console_.out};

    FrmOptions form_;
    settings::Settings settings_{store_};
    language::LanguageTables tables_;
    language::LanguageCatalogue catalogue_{form_, machine_.folder};
    language::LanguageLoader loader_{
        {form_, settings_, catalogue_, tables_, machine_.folder, noDialogs_, machine_.regional}};
    companion::Actor actor_;
    companion::PhraseEngine phrases_{{form_, settings_, tables_, actor_, machine_.regional, machine_.random}};
    companion::Announcer announcer_{{form_, actor_, phrases_, dialogs_}};
    companion::Speech speech_{tables_.messageTable, phrases_, announcer_};
    cleaner::NastyFileList nastyFiles_{{form_, settings_, speech_, dialogs_, machine_.regional}};
    cleaner::WatchedFolderList watchedFolders_{
        {form_, settings_, speech_, dialogs_, files_, machine_.regional}};
    cleaner::FolderSweep sweep_{{form_, speech_, files_, dialogs_, machine_.regional, pump_}};
    cleaner::Statistics statistics_{
        {form_, settings_, speech_, actor_, clipboard_, machine_.clock, machine_.regional, program_}};
    cleaner::ScanRun scanRun_{{.form = form_,
                               .settings = settings_,
                               .speech = speech_,
                               .actor = actor_,
                               .sweep = sweep_,
                               .folders = watchedFolders_,
                               .statistics = statistics_,
                               .programFolder = machine_.folder,
                               .lock = machine_.lock,
                               .tray = tray_,
                               .shell = shell_,
                               .clock = machine_.clock,
                               .regional = machine_.regional}};
    ScanReport report_{options_, console_};
    bool usable_ = true;    ///< the language file that was read last
    bool allStored_ = true; ///< the totals
};

ExitStatus ScanProgram::run() {
    if (!chooseLanguage()) {
        console_.err << "brovin: no usable language file in the program's folder\n";
        return ExitStatus::BadUsage;
    }
    restoreOptions();
    applySwitches();
    fillLists();
    if (form_.lstFolders.count() == 0) {
        console_.err << "brovin: no folder is watched; name one with --folder\n";
        return ExitStatus::NothingToScan;
    }
    settings_.refused = [this](const std::string& location) {
        console_.err << "brovin: the totals could not be saved in " << location << "\n";
        allStored_ = false;
    };
    sweep_.deletionTried = [this](const cleaner::Deletion& deletion) { report_.deletion(deletion); };
    sweep_.folderFailed = [this](const std::string& path, const std::string& reason) {
        report_.folderFailed(path, reason);
    };
    sweep_.waiting = [this](const std::string& path) { report_.waiting(path); };
    pump_.stop = [this] { sweep_.cancel(); };
    form_.sbStatus.observe([this] { report_.progress(form_.sbStatus.panel()); });
    if (scanRun_.runScan() == ScanOutcome::BusyElsewhere) {
        console_.err << "brovin: another scan is running\n";
        return ExitStatus::Busy;
    }
    report_.summary(sweep_);
    if (const int number = machine_.stopSignal ? machine_.stopSignal() : 0; sweep_.cancelled() && number != 0)
        return endedBySignal(number);
    const bool allDone =
        report_.complete() && allStored_ && dialogs_.unanswered() == 0 && !machine_.settingsDamaged;
    return allDone ? ExitStatus::Done : ExitStatus::SomeFailed;
}

/// The chosen language, else the default one, else any: a scan at night must not fail over a broken file.
bool ScanProgram::chooseLanguage() {
    form_.lstLang.click = [this] { loader_.lstLang_Click(); };
    loader_.quit = [this] { usable_ = false; };
    catalogue_.buildLanguageCatalogue();
    std::vector<std::string> files{settings_.read(setting::kLanguage),
                                   std::string(setting::kLanguage.fallback)};
    files.insert(files.end(), catalogue_.langFiles.begin(), catalogue_.langFiles.end());
    return std::any_of(files.begin(), files.end(), [this](const auto& file) { return useLanguage(file); });
}

bool ScanProgram::useLanguage(const std::string& file) {
    const auto entry = catalogue_.entryOf(file);
    usable_ = true;
    return entry && form_.lstLang.select(*entry) && usable_;
}

void ScanProgram::restoreOptions() {
    for (const Box& row : kBoxes)
        (form_.*row.box).setValue(text::leadingInt16(settings_.read(*row.setting)).value_or(0));
    if (!machine_.settingsDamaged)
        return;
    console_.err
        << "brovin: the settings are damaged, so nothing is forced and each deletion is asked about: "
        << store_.location() << "\n";
    form_.chkForce.setValue(ui::CheckBox::kOff);
    form_.chkConfirm.setValue(ui::CheckBox::kOn);
}

/// What the command line says counts more than what is stored.
void ScanProgram::applySwitches() {
    const bool namesAlone = !options_.nasty.empty();
    const std::pair<ui::CheckBox*, std::optional<bool>> switches[] = {
        {&form_.chkDotDash, namesAlone ? options_.dotUnderscore.value_or(false) : options_.dotUnderscore},
        {&form_.chkIcon, namesAlone ? options_.iconFiles.value_or(false) : options_.iconFiles},
        {&form_.chkForce, options_.force},
        {&form_.chkConfirm, options_.confirm},
    };
    for (const auto& [box, chosen] : switches)
        if (chosen)
            box->setValue(*chosen ? ui::CheckBox::kOn : ui::CheckBox::kOff);
    if (!options_.dryRun)
        return;
    form_.chkLog.setValue(ui::CheckBox::kOff);
    form_.chkConfirm.setValue(ui::CheckBox::kOff); // nothing is deleted, so there is nothing to ask
}

void ScanProgram::fillLists() {
    nastyFiles_.load();
    watchedFolders_.load();
    if (!options_.folders.empty())
        watchedFolders_.show(options_.folders);
    if (options_.nasty.empty())
        return;
    std::vector<ui::ListControl::Item> names;
    for (const std::string& name : options_.nasty)
        names.push_back({machine_.regional.lowerCase(name), 0});
    form_.lstFiles.setItems(std::move(names));
}

} // namespace

ExitStatus scanCommand(const ScanOptions& options, const ScanMachine& machine, const Console& console,
                       const settings::ProgramInfo& program) {
    return ScanProgram(options, machine, console, program).run();
}

} // namespace brovin::headless
