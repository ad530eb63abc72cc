#include "app/settings.h"

namespace brovin::app {
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

void Settings::writeTo(std::string_view section, std::span<const platform::SettingsEntry> entries) {
    if (store_.write(section, entries) || refusedBefore_)
        return;
    refusedBefore_ = true;
    if (refused)
        refused(store_.location());
}

} // namespace brovin::app
