#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace brovin::platform {

/// One key with its value, as UTF-8 text.
struct SettingsEntry {
    std::string key;
    std::string value;
};

/// The user's settings: texts under a section and a key.
class SettingsStore {
public:
    virtual ~SettingsStore() = default;

    /// The stored text; nullopt when the key is missing. Sees what other programs of this user have written.
    [[nodiscard]] virtual std::optional<std::string> read(std::string_view section, std::string_view key) = 0;

    /// Where the settings are, for messages to the user.
    [[nodiscard]] virtual std::string location() const = 0;

    /// Stores all entries by one write to the disk, which is complete when this returns. False: nothing was
    /// stored, and the file is as it was.
    [[nodiscard]] virtual bool write(std::string_view section, std::span<const SettingsEntry> entries) = 0;
};

} // namespace brovin::platform
