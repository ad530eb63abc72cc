#include "settings/settings.h"

#include <utility>

namespace brovin::settings {

std::string Settings::read(const Setting& setting) const {
    return stored(setting).value_or(std::string(setting.fallback));
}

std::optional<std::string> Settings::stored(const Setting& setting) const {
    return store_.read(kSettingsSection, setting.key);
}

void Settings::write(const Setting& setting, std::string value) {
    const platform::SettingsEntry entry{std::string(setting.key), std::move(value)};
    writeTo(kSettingsSection, {&entry, 1});
}

std::optional<std::string> Settings::readFrom(std::string_view section, std::string_view key) const {
    return store_.read(section, key);
}

bool Settings::writeTo(std::string_view section, std::span<const platform::SettingsEntry> entries) {
    const bool stored = store_.write(section, entries);
    if (!std::exchange(refusedBefore_, !stored) && !stored && refused)
        refused(store_.location());
    return stored;
}

} // namespace brovin::settings
