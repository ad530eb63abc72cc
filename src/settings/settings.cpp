#include "settings/settings.h"

#include <algorithm>
#include <utility>

namespace brovin::settings {

std::string Settings::read(const Setting& setting) const {
    return stored(setting).value_or(std::string(setting.fallback));
}

Settings::Together::~Together() {
    settings_.together_ = false;
    const auto kept = std::exchange(settings_.kept_, {});
    if (!kept.empty())
        settings_.writeTo(kSettingsSection, kept);
}

std::optional<std::string> Settings::stored(const Setting& setting) const {
    const auto kept = std::find_if(kept_.begin(), kept_.end(),
                                   [&setting](const auto& entry) { return entry.key == setting.key; });
    return kept == kept_.end() ? store_.read(kSettingsSection, setting.key) : kept->value;
}

void Settings::write(const Setting& setting, std::string value) {
    platform::SettingsEntry entry{std::string(setting.key), std::move(value)};
    if (!together_) {
        writeTo(kSettingsSection, {&entry, 1});
        return;
    }
    std::erase_if(kept_, [&setting](const auto& before) { return before.key == setting.key; });
    kept_.push_back(std::move(entry));
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
