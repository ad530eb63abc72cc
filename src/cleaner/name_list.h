#pragma once

#include "cleaner/scan_state.h"
#include "companion/speech.h"
#include "platform/dialogs.h"
#include "platform/letters.h"
#include "settings/settings.h"
#include "ui/pages/nasty_files_page.h"

#include <string_view>

namespace brovin::cleaner {

/// What a list of names needs to be shown, edited and stored.
struct NameListNeeds {
    ui::NastyFilesPage& nastyPage;
    const ScanState& scan;
    settings::Settings& settings;
    companion::Speech speech;
    platform::Dialogs& dialogs;
    const platform::Letters& letters;
};

/// Fills the list from its section of the store.
void loadNames(const NameListNeeds& needs, ui::ListBox& list, std::string_view section);

/// False: refused, nothing was stored.
bool saveNames(const NameListNeeds& needs, const ui::ListBox& list, std::string_view section);

} // namespace brovin::cleaner
