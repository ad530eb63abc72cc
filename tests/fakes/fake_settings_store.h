#pragma once

#include "platform/settings_store.h"

#include <functional>
#include <map>
#include <string>
#include <utility>

namespace brovin::fakes {

/// Settings in memory.
class FakeSettingsStore final : public platform::SettingsStore {
public:
    std::map<std::pair<std::string, std::string>, std::string> values; ///< by section and key
    int writes = 0;                                                    ///< how often the disk was written to
    bool refuses = false;

    /// A key of the section "Settings"; empty when it is missing.
    [[nodiscard]] std::string setting(const std::string& key) { return read("Settings", key).value_or(""); }
    void set(const std::string& key, const std::string& value) { values[{"Settings", key}] = value; }

    [[nodiscard]] std::optional<std::string> read(std::string_view section, std::string_view key) override {
        const auto found = values.find({std::string(section), std::string(key)});
        return found == values.end() ? std::nullopt : std::optional(found->second);
    }
    [[nodiscard]] bool write(std::string_view section,
                             std::span<const platform::SettingsEntry> entries) override {
        if (refuses)
            return false;
        ++writes;
        for (const auto& entry : entries)
            values[{std::string(section), entry.key}] = entry.value;
        return true;
    }
    [[nodiscard]] std::string location() const override { return "memory"; }
};

} // namespace brovin::fakes
