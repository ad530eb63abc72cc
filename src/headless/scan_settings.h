#pragma once

#include "platform/settings_store.h"

namespace brovin::headless {

/// The user's settings as a scan from the command line sees them: it may store when it was, and the totals.
/// All that the window would store in passing stays as it is, and with `Stores::Nothing` everything.
class ScanSettings final : public platform::SettingsStore {
public:
    enum class Stores : bool { Nothing, Totals };
    ScanSettings(platform::SettingsStore& beneath, Stores stores) : beneath_(beneath), stores_(stores) {}

    [[nodiscard]] std::optional<std::string> read(std::string_view section, std::string_view key) override {
        return beneath_.read(section, key);
    }
    [[nodiscard]] std::string location() const override { return beneath_.location(); }
    [[nodiscard]] bool write(std::string_view section,
                             std::span<const platform::SettingsEntry> entries) override;

private:
    platform::SettingsStore& beneath_;
    Stores stores_;
};

} // namespace brovin::headless
