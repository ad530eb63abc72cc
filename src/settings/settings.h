#pragma once

#include "platform/settings_store.h"
#include "settings/setting_table.h"

#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace brovin::settings {

/// The settings store as the program uses it: keys come from the table of settings, and a write that the
/// machine refuses is reported and does not stop anything.
class Settings {
public:
    explicit Settings(platform::SettingsStore& store) : store_(store) {}

    /// Called when a write is refused and the one before was not, with the place where the settings are: one
    /// report for a disk that is full, and another when it is full again.
    std::function<void(const std::string& location)> refused;

    /// The stored text, or the setting's fallback.
    [[nodiscard]] std::string read(const Setting& setting) const;
    /// The stored text; nullopt when the key is missing.
    [[nodiscard]] std::optional<std::string> stored(const Setting& setting) const;
    void write(const Setting& setting, std::string value);

    /// While one lives, `write` keeps what it is given, and `read` knows it; at the end all is stored by one
    /// write to the disk, as the start would otherwise make one for each control that it restores.
    class Together {
    public:
        explicit Together(Settings& settings) : settings_(settings) { settings_.together_ = true; }
        ~Together();
        Together(const Together&) = delete;
        Together& operator=(const Together&) = delete;

    private:
        Settings& settings_;
    };

    /// A key of another section.
    [[nodiscard]] std::optional<std::string> readFrom(std::string_view section, std::string_view key) const;
    /// Stores several keys of another section by one write to the disk. False: refused, nothing was stored.
    bool writeTo(std::string_view section, std::span<const platform::SettingsEntry> entries);

private:
    platform::SettingsStore& store_;
    bool refusedBefore_ = false;
    bool together_ = false;
    std::vector<platform::SettingsEntry> kept_; ///< while writes are kept together
};

} // namespace brovin::settings
