#include "headless/scan_command.h"

#include "app/stored_controls.h"
#include "cleaner/cleaner.h"
#include "cleaner/folder_guard.h"
#include "cleaner/preview_file_system.h"
#include "cleaner/shown_path.h"
#include "companion/teller.h"
#include "headless/log_watch.h"
#include "headless/scan_report.h"
#include "headless/scan_settings.h"
#include "language/language.h"
#include "settings/settings.h"

#include <algorithm>
#include <ostream>
#include <utility>

namespace brovin::headless {
namespace {

namespace setting = settings::setting;
using cleaner::ScanOutcome;
using ui::FrmOptions;

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
    bool refusesFolder();
    void restoreOptions();
    void applySwitches();
    void fillLists();

    const ScanOptions& options_;
    ScanMachine machine_;
    Console console_;
    const settings::ProgramInfo& program_;

    cleaner::PreviewFileSystem previewFiles_{machine_.files};
    // A damaged file stays as it is until the window tells the user: the next scan is to be as careful.
    ScanSettings store_{machine_.settings, options_.dryRun || machine_.settingsDamaged
                                               ? ScanSettings::Stores::Nothing
                                               : ScanSettings::Stores::Totals};
    platform::FileSystem& files_ =
        options_.dryRun ? static_cast<platform::FileSystem&>(previewFiles_) : machine_.files;
    LogWatch folder_{machine_.folder};
    ConsoleDialogs dialogs_{console_};
    NoDialogs noDialogs_;
    NoShell shell_;
    NoClipboard clipboard_;
    NoNotificationArea tray_;
    StopPump pump_{machine_.stopSignal, console_.out};

    FrmOptions form_;
    settings::Settings settings_{store_};
    ui::TrayTip tip_{tray_};
    language::Language language_{{form_, settings_, machine_.folder, noDialogs_, machine_.letters}};
    companion::Teller teller_{
        {form_, settings_, language_.tables, dialogs_, machine_.letters, machine_.random}};
    cleaner::Cleaner cleaner_{{.pages = {form_, form_, form_, form_, form_, form_},
                               .tip = tip_,
                               .settings = settings_,
                               .speech = teller_.speech,
                               .actor = teller_.actor,
                               .program = program_,
                               .machine = {files_, machine_.landmarks, folder_, machine_.lock, dialogs_,
                                           shell_, clipboard_, pump_, machine_.clock, machine_.regional,
                                           machine_.letters, options_.dryRun ? nullptr : &machine_.history}}};
    ScanReport report_{options_, console_, language_.tables.messageTable};
    bool usable_ = true;    ///< the language file that was read last
    bool allStored_ = true; ///< the totals
    bool allLogged_ = true;
};

ExitStatus ScanProgram::run() {
    if (!chooseLanguage()) {
        console_.err << "brovin: no usable language file in the program's folder\n";
        return ExitStatus::BadUsage;
    }
    if (refusesFolder())
        return ExitStatus::BadUsage;
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
    cleaner_.sweep.looksInto = options_.json;
    folder_.lost = [this](const std::string& path, const platform::Failure& why) {
        if (std::exchange(allLogged_, false))
            console_.err << "brovin: the deletion log could not be written: " << path << ": " << why.reason
                         << "\n";
    };
    cleaner_.sweep.deletionTried = [this](const cleaner::Deletion& deletion) { report_.deletion(deletion); };
    cleaner_.sweep.folderFailed = [this](const std::string& path, const std::string& reason) {
        report_.folderFailed(path, reason);
    };
    cleaner_.sweep.waiting = [this](const std::string& path) { report_.waiting(path); };
    pump_.stop = [this] { cleaner_.sweep.cancel(); };
    form_.sbStatus.observe([this] { report_.progress(form_.sbStatus.panel()); });
    if (cleaner_.scanRun.runScan() == ScanOutcome::BusyElsewhere) {
        console_.err << "brovin: another scan is running\n";
        return ExitStatus::Busy;
    }
    report_.summary(cleaner_.sweep);
    if (const std::string& trouble = cleaner_.scanRun.historyTrouble(); !trouble.empty())
        console_.err << "brovin: " << trouble << "\n";
    if (const int number = machine_.stopSignal ? machine_.stopSignal() : 0;
        cleaner_.sweep.cancelled() && number != 0)
        return endedBySignal(number);
    const bool allDone = report_.complete() && allStored_ && allLogged_ && dialogs_.unanswered() == 0 &&
                         !machine_.settingsDamaged;
    return allDone ? ExitStatus::Done : ExitStatus::SomeFailed;
}

/// The chosen language, else the default one, else any: a scan at night must not fail over a broken file.
bool ScanProgram::chooseLanguage() {
    language_.loader.quit = [this] { usable_ = false; };
    language_.catalogue.buildLanguageCatalogue();
    std::vector<std::string> files{settings_.read(setting::kLanguage),
                                   std::string(setting::kLanguage.fallback)};
    files.insert(files.end(), language_.catalogue.langFiles.begin(), language_.catalogue.langFiles.end());
    return std::any_of(files.begin(), files.end(), [this](const auto& file) { return useLanguage(file); });
}

bool ScanProgram::useLanguage(const std::string& file) {
    const auto entry = language_.catalogue.entryOf(file);
    usable_ = true;
    return entry && form_.lstLang.select(*entry) && usable_;
}

/// A script that has lost a variable names "/", or a home.
bool ScanProgram::refusesFolder() {
    if (options_.yesThisFolder)
        return false;
    for (const std::string& folder : options_.folders)
        if (const auto risk = cleaner::riskText(cleaner::folderRisk(folder, machine_.landmarks))) {
            console_.err << "brovin: " << cleaner::listedPath(folder, {}) << ": "
                         << language::MessageTable().getText(*risk)
                         << " If that is what you want, add --yes-this-folder.\n";
            return true;
        }
    return false;
}

void ScanProgram::restoreOptions() {
    // A value that its control refuses leaves it off.
    for (const auto rows : {app::storedControls(), app::storedRules()})
        for (const app::StoredControl& row : rows)
            if (row.guidesScan)
                static_cast<void>(app::restore(form_, row, settings_.read(*row.setting)));
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
        {&form_.chkSpare, options_.spareCarriers},
        {&form_.chkForce, options_.force},
        {&form_.chkConfirm, options_.confirm},
        {&form_.chkTrash, options_.trash},
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
    cleaner_.nastyFiles.load();
    cleaner_.keepList.load();
    for (const std::string& entry : options_.keep)
        cleaner_.keepList.addUnstored(entry);
    cleaner_.watchedFolders.load();
    if (!options_.folders.empty())
        cleaner_.watchedFolders.show(options_.folders);
    if (options_.nasty.empty())
        return;
    std::vector<ui::ListControl::Item> names;
    for (const std::string& name : options_.nasty)
        names.push_back({machine_.letters.lowerCase(name), 0});
    form_.lstFiles.setItems(std::move(names));
}

} // namespace

ExitStatus scanCommand(const ScanOptions& options, const ScanMachine& machine, const Console& console,
                       const settings::ProgramInfo& program) {
    return ScanProgram(options, machine, console, program).run();
}

} // namespace brovin::headless
