#pragma once

#include "headless/command_line.h"
#include "headless/console.h"
#include "headless/exit_status.h"
#include "platform/clock.h"
#include "platform/deletion_history.h"
#include "platform/file_system.h"
#include "platform/landmarks.h"
#include "platform/letters.h"
#include "platform/program_folder.h"
#include "platform/random.h"
#include "platform/regional.h"
#include "platform/scan_lock.h"
#include "platform/settings_store.h"
#include "settings/program_info.h"

#include <functional>

namespace brovin::headless {

/// What of the machine a scan without a display needs.
struct ScanMachine {
    platform::SettingsStore& settings;
    platform::FileSystem& files;
    const platform::Landmarks& landmarks;
    platform::ProgramFolder& folder;
    platform::ScanLock& lock;
    const platform::Regional& regional;
    const platform::Letters& letters;
    const platform::Clock& clock;
    platform::Random& random;
    platform::DeletionHistory& history;
    bool settingsDamaged = false; ///< nobody knows for certain what the user has chosen
    /// The number of the signal by which the user wants the scan stopped; 0: none. Empty: nobody can.
    std::function<int()> stopSignal = {};
};

/// One scan run on the program's own core: the same sweep, log and totals as in the window. It makes no
/// update check, since nobody is there to ask.
[[nodiscard]] ExitStatus scanCommand(const ScanOptions& options, const ScanMachine& machine,
                                     const Console& console, const settings::ProgramInfo& program);

} // namespace brovin::headless
