#include "settings/settings.h"

#include <utility>

namespace brovin::settings {
namespace {
constexpr std::string_view kSection = "Settings";
}

std::string Settings::read(const Setting& setting) const {
    return stored(setting).value_or(std::string(setting.fallback));
}

std::optional<std::string> Settings::stored(const Setting& setting) const {
    return store_.read(kSection, setting.key);
}

void Settings::write(const Setting& setting, std::string value) {
    const platform::SettingsEntry entry{std::string(setting.key), std::move(value)};
    writeTo(kSection, {&entry, 1});
}

std::optional<std::string> Settings::readFrom(std::string_view section, std::string_view key) const {
    return store_.read(section, key);
}

bool Settings::writeTo(std::string_view section, std::span<const platform::SettingsEntry> entries) {
    if (store_.write(section, entries))
        return true;
    if (!std::exchange(refusedBefore_, true) && refused)
        refused(store_.location());
    return false;
}

} // namespace brovin::settings
