#pragma once

#include "cleaner/scan_state.h"
#include "companion/speech.h"
#include "platform/clipboard.h"
#include "platform/clock.h"
#include "platform/regional.h"
#include "settings/program_info.h"
#include "settings/settings.h"
#include "ui/pages/character_page.h"
#include "ui/pages/folders_page.h"
#include "ui/pages/window_frame.h"

#include <optional>
#include <string>

namespace brovin::cleaner {

/// The running totals, the texts that show them, and the buttons that reset and copy them.
class Statistics {
public:
    struct Needs {
        ui::WindowFrame& frame;
        ui::FoldersPage& foldersPage;
        const ui::CharacterPage& characterPage;
        const ScanState& scan;
        settings::Settings& settings;
        companion::Speech speech;
        const companion::Actor& actor;
        platform::Clipboard& clipboard;
        const platform::Clock& clock;
        const platform::Regional& regional;
        const settings::ProgramInfo& program;
    };
    explicit Statistics(const Needs& needs) : needs_(needs) {}

    /// Shows the totals in the window's title. A total that nobody could have reached honestly is reset, and
    /// the user is told off.
    void updateStatistics();
    /// Shows in the title what goes on, in place of the totals until they are updated.
    void showRunning(const std::string& what);
    /// Shows the last and the next scan in the status bar and beside `txtInterval`.
    void showLastScanned();

    /// Today in the long date format.
    [[nodiscard]] std::string today() const { return needs_.regional.longDate(needs_.clock.now()); }

    void cmdResetCounter_Click();
    void cmdCopyNumbers_Click();

private:
    void reset(std::string since);
    void tellOff();
    [[nodiscard]] std::optional<platform::DateTime> nextScan() const;

    Needs needs_;
    std::string numbers_; ///< the totals as they were shown last
};

} // namespace brovin::cleaner
