#pragma once

#include "platform/character_service.h"
#include "platform/clipboard.h"
#include "platform/clock.h"
#include "platform/dialogs.h"
#include "platform/event_pump.h"
#include "platform/file_system.h"
#include "platform/notification_area.h"
#include "platform/program_folder.h"
#include "platform/random.h"
#include "platform/regional.h"
#include "platform/registry.h"
#include "platform/scan_lock.h"
#include "platform/settings_store.h"
#include "platform/shell.h"
#include "platform/single_instance.h"
#include "settings/program_info.h"
#include "ui/frm_options.h"
#include "update/update_check.h"
#include "window/main_window.h"

#include <memory>
#include <string>

namespace brovin::app {

/// The machine beneath the program, piece by piece.
struct Machine {
    platform::SettingsStore& settings;
    platform::FileSystem& files;
    platform::ProgramFolder& folder;
    platform::Dialogs& dialogs;
    platform::Shell& shell;
    platform::NotificationArea& tray;
    platform::Clipboard& clipboard;
    platform::CharacterService& characters;
    platform::Registry& registry;
    platform::SingleInstance& instance;
    platform::ScanLock& scanLock;
    platform::Regional& regional;
    platform::Clock& clock;
    platform::Random& random;
    platform::EventPump& pump;
    const update::Machine* updates = nullptr; ///< null: this machine cannot ask for updates
};

/// The whole program: builds every room, ties the controls' events to their handlers, and starts.
class Program {
public:
    /// `command` is what the desktop starts at log-on.
    Program(const Machine& machine, settings::ProgramInfo info, std::string command);
    ~Program();
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    [[nodiscard]] ui::FrmOptions& frmOptions();
    [[nodiscard]] window::MainWindow& mainWindow();

    /// What the program says in the active language.
    [[nodiscard]] const language::MessageTable& messages() const;

    /// Starts up. False: the program is to end at once.
    bool Form_Load();

private:
    struct Rooms;
    std::unique_ptr<Rooms> rooms_;
};

} // namespace brovin::app
