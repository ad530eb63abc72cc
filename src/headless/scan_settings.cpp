#include "headless/scan_settings.h"

#include "settings/setting_table.h"

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

namespace brovin::headless {
bool ScanSettings::write(std::string_view section, std::span<const platform::SettingsEntry> entries) {
    constexpr std::array kStored = {settings::setting::kLastScanned.key, settings::setting::kTotalNuked.key,
                                    settings::setting::kKb.key, settings::setting::kTotalDate.key};
    std::vector<platform::SettingsEntry> stored;
    for (const platform::SettingsEntry& entry : entries)
        if (stores_ == Stores::Totals && section == settings::kSettingsSection &&
            std::find(kStored.begin(), kStored.end(), entry.key) != kStored.end())
            stored.push_back(entry);
    return stored.empty() || beneath_.write(section, stored);
}

} // namespace brovin::headless
