#include "desktop/desktop_program.h"

#include "app/program.h"
#include "cleaner/deletion_log.h"
#include "desktop/character/desktop_character_service.h"
#include "desktop/character/file_gallery.h"
#include "desktop/machine/autostart_entry.h"
#include "desktop/machine/box_manners.h"
#include "desktop/machine/desktop_surroundings.h"
#include "desktop/machine/initiative.h"
#include "desktop/machine/lock_file_instance.h"
#include "desktop/machine/qt_dialogs.h"
#include "desktop/machine/qt_shell.h"
#include "desktop/machine/timer_binding.h"
#include "desktop/machine/tray_icon.h"
#include "desktop/records/log_window.h"
#include "desktop/records/score_window.h"
#include "desktop/spoken_audio.h"
#include "desktop/widgets/pictures.h"
#include "desktop/window/accessibility.h"
#include "desktop/window/form_window.h"
#include "desktop/window/options_window.h"
#include "desktop/window/preview_window.h"
#include "desktop/window/starter_window.h"
#include "platform/standard_random.h"
#include "posix/disk_program_folder.h"
#include "posix/flock_scan_lock.h"
#include "posix/history_module.h"
#include "posix/icu_regional.h"
#include "posix/ini_settings_store.h"
#include "posix/make_folders.h"
#include "posix/posix_file_system.h"
#include "posix/posix_landmarks.h"
#include "posix/system_clock.h"
#include "posix/unicode_letters.h"

#include <QApplication>
#include <QFile>
#include <QPointer>
#include <QTimer>

#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace brovin::desktop {
namespace {

QString pathOf(const std::string& bytes) {
    return QFile::decodeName(QByteArray::fromStdString(bytes));
}

/// The user's own characters win.
std::vector<std::string> characterFolders(const posix::Places& places) {
    return {places.ownFolder + "/msagent/chars", places.installedFolder + "/msagent/chars"};
}

/// The machine beneath, on a Linux desktop.
struct DesktopMachine {
    DesktopMachine(const posix::Places& places, const UpdateSource& source, const AudioMaker& audio)
        : settings(places.settingsFile), landmarks(places),
          folder({places.installedFolder, places.ownFolder}), gallery(characterFolders(places)),
          characters({characterFolders(places), audio ? audio : spokenAudio, [this] { return busy(); }}),
          logOn(pathOf(places.autostartFolder) + QStringLiteral("/brovin.desktop")),
          instance(places.runningLock), scanLock(places.settingsFolder),
          history(places.ownFolder + posix::kScoreFile), updates(source) {}

    Initiative initiative;
    posix::IniSettingsStore settings;
    posix::PosixFileSystem files;
    posix::PosixLandmarks landmarks;
    posix::DiskProgramFolder folder;
    QtDialogs dialogs;
    QtShell shell;
    TrayIcon tray;
    DesktopSurroundings surroundings;
    QtClipboard clipboard;
    FileGallery gallery;
    DesktopCharacterService characters;
    AutostartEntry logOn;
    LockFileInstance instance;
    posix::FlockScanLock scanLock;
    posix::IcuRegional regional;
    posix::UnicodeLetters letters;
    posix::SystemClock clock;
    platform::StandardRandom random;
    QtEventPump pump;
    posix::HistoryModule history;
    Updates updates;

    /// Whether the program waits for an answer, and other events have to wait for the program.
    [[nodiscard]] bool busy() const { return dialogs.open() || updates.open() || characters.loading(); }
    [[nodiscard]] app::Machine pieces() {
        return {settings,      files,     landmarks,  folder, dialogs,  shell,
                tray,          clipboard, characters, logOn,  instance, scanLock,
                regional,      letters,   clock,      random, pump,     updates.machine(),
                &surroundings, &history,  &gallery};
    }
};

void tellOfDamage(QtDialogs& dialogs, const posix::IniSettingsStore& settings,
                  const language::MessageTable& messages) {
    if (settings.damagedCopy().empty())
        return;
    dialogs.messageBox(messages.getText("settingsDamaged", {settings.damagedCopy()}),
                       platform::box::kExclamation, "");
}

} // namespace

struct DesktopProgram::Parts {
    Parts(const posix::Places& places, const settings::ProgramInfo& info, const UpdateSource& updates,
          const AudioMaker& audio)
        : machine(places, updates, audio), program(machine.pieces(), info, posix::programFile()) {}

    DesktopMachine machine;
    app::Program program;
    std::function<bool()> busy = [this] { return machine.busy(); };
    OptionsWindow window{program.frmOptions()};
    cleaner::ScoreBook score{{machine.history, program.messages(), machine.regional}};
    QPointer<QDialog> scoreWindow; ///< null: not open
    QPointer<QDialog> logWindow;
    std::vector<platform::Errand> waiting; ///< for `later`
    QTimer later;
    TimerBinding tick{program.frmOptions().Timer1, machine.initiative, busy};
    TimerBinding frame{program.frmOptions().lineTimer, program.frmOptions().window};
};

DesktopProgram::DesktopProgram(const posix::Places& places, const settings::ProgramInfo& info,
                               const UpdateSource& updates, const AudioMaker& audio) {
    QApplication::setQuitOnLastWindowClosed(false);
    QApplication::setWindowIcon(programIcon());
    installAccessibility();
    static_cast<void>(posix::makeFolders(places.settingsFolder)); // whether it can be written in shows later
    parts_ = std::make_unique<Parts>(places, info, updates, audio);
    DesktopMachine& machine = parts_->machine;
    OptionsWindow& window = parts_->window;
    showWhileVisible<StarterWindow>(form().frmStarter, window);
    showWhileVisible<PreviewWindow>(parts_->program.frmPreview(), window);
    window.company = [&machine] { return machine.characters.company(); };
    machine.dialogs.setOwner(&window);
    machine.updates.setOwner(&window);
    machine.shell.setWindow(&window);
    machine.shell.setManual(pathOf(places.installedFolder + "/help"));
    machine.shell.manualPage = [this] { return parts_->program.messages().getText("manualPage"); };
    machine.shell.ending = [&window] { window.letGo(); };
    machine.instance.serve = [this](platform::Errand errand) { serve(errand); };
    machine.dialogs.asked = [&machine] { return machine.initiative.userAsked(); };
    machine.tray.tie(form(), parts_->program.mainWindow(),
                     {[&machine] { machine.initiative.userActs(); }, parts_->busy, [this] { comeUp(); }});
    tieRecords();
    parts_->later.setSingleShot(true);
    QObject::connect(&parts_->later, &QTimer::timeout, [this] {
        for (const platform::Errand errand : std::exchange(parts_->waiting, {}))
            serve(errand);
    });
    form().imgBrovin.setPicture("imgBrovin");
    form().imgLogo.setPicture("imgLogo");
    form().picAdd.setPicture("picAdd");
    form().picAddFile.setPicture("picAddFile");
}

DesktopProgram::~DesktopProgram() = default;

void DesktopProgram::tieRecords() {
    const auto show = [](QPointer<QDialog>& shown, auto make) {
        if (!shown) {
            shown = make();
            shown->setAttribute(Qt::WA_DeleteOnClose);
        }
        shown->show();
        bringBack(*shown);
    };
    form().cmdScore.click = [this, show] {
        show(parts_->scoreWindow, [this] { return new ScoreWindow(parts_->score, &parts_->window); });
    };
    form().cmdSearchLog.click = [this, show] {
        DesktopMachine& machine = parts_->machine;
        const QString log = pathOf(machine.folder.path(std::string(cleaner::kLogFile)));
        show(parts_->logWindow, [&] {
            return new LogWindow({log, parts_->program.messages(), machine.regional, machine.letters},
                                 &parts_->window);
        });
    };
}

bool DesktopProgram::start(std::optional<platform::Errand> errand) {
    parts_->machine.initiative.userActs(); // by starting it
    if (!parts_->program.Form_Load(errand))
        return false;
    tellOfDamage(parts_->machine.dialogs, parts_->machine.settings, parts_->program.messages());
    if (errand) // once there are events: a scan lets them through
        serveSoon(*errand);
    return true;
}

void DesktopProgram::serveSoon(platform::Errand errand) {
    constexpr std::chrono::milliseconds kSoon{20};
    parts_->waiting.push_back(errand);
    parts_->later.start(kSoon);
}

void DesktopProgram::serve(platform::Errand errand) {
    if (parts_->machine.characters.loading()) // perhaps at the start, which goes on behind it
        return serveSoon(errand);
    if (errand == platform::Errand::ShowWindow || parts_->busy())
        return comeUp(); // what is open wants its answer first
    parts_->machine.initiative.userActs();
    parts_->program.serve(errand);
}

void DesktopProgram::comeUp() {
    parts_->machine.initiative.userActs();
    if (parts_->machine.characters.loading())
        return serveSoon(platform::Errand::ShowWindow);
    if (QWidget* question = QApplication::activeModalWidget()) {
        if (question->parentWidget() != nullptr) // which takes its question along when it is put away
            form().mPopRestore.click();
        bringBack(*question);
    } else if (parts_->busy()) {
        parts_->machine.shell.setForegroundWindow(); // it cannot listen to more at this moment
    } else {
        form().mPopRestore.click();
    }
}

ui::FrmOptions& DesktopProgram::form() {
    return parts_->program.frmOptions();
}
OptionsWindow& DesktopProgram::window() {
    return parts_->window;
}
QRect DesktopProgram::trayIcon() const {
    return parts_->machine.tray.place();
}

} // namespace brovin::desktop
