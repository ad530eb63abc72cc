#pragma once

#include "platform/character_gallery.h"
#include "platform/character_service.h"
#include "platform/clipboard.h"
#include "platform/clock.h"
#include "platform/deletion_history.h"
#include "platform/dialogs.h"
#include "platform/event_pump.h"
#include "platform/file_system.h"
#include "platform/landmarks.h"
#include "platform/letters.h"
#include "platform/log_on_entry.h"
#include "platform/notification_area.h"
#include "platform/program_folder.h"
#include "platform/random.h"
#include "platform/regional.h"
#include "platform/scan_lock.h"
#include "platform/settings_store.h"
#include "platform/shell.h"
#include "platform/single_instance.h"
#include "platform/surroundings.h"
#include "update/update_check.h"

namespace brovin::app {

/// The machine beneath the program, piece by piece.
struct Machine {
    platform::SettingsStore& settings;
    platform::FileSystem& files;
    const platform::Landmarks& landmarks;
    platform::ProgramFolder& folder;
    platform::Dialogs& dialogs;
    platform::Shell& shell;
    platform::NotificationArea& tray;
    platform::Clipboard& clipboard;
    platform::CharacterService& characters;
    platform::LogOnEntry& logOn;
    platform::SingleInstance& instance;
    platform::ScanLock& scanLock;
    platform::Regional& regional;
    platform::Letters& letters;
    platform::Clock& clock;
    platform::Random& random;
    platform::EventPump& pump;
    const update::Machine* updates = nullptr;       ///< null: this build or machine never asks for any
    platform::Surroundings* surroundings = nullptr; ///< null: nothing is known of them
    platform::DeletionHistory* history = nullptr;   ///< null: none is kept
    platform::CharacterGallery* gallery = nullptr;  ///< null: characters are names to choose from
};

} // namespace brovin::app
