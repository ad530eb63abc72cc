#pragma once

#include "platform/settings_store.h"

#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace brovin::posix {

/// What an INI file holds, in memory; remarks and the order of its lines are kept. See ini_text.h for how
/// texts stand in it.
class IniContent {
public:
    /// Nothing.
    IniContent();
    ~IniContent();
    IniContent(const IniContent&) = delete;
    IniContent& operator=(const IniContent&) = delete;

    enum class Read {
        Whole,
        Damaged, ///< some lines mean nothing, and are not here
        Failed,
    };
    /// Reads a file into one that has nothing yet.
    [[nodiscard]] Read read(std::string_view file);

    [[nodiscard]] std::optional<std::string> find(std::string_view section, std::string_view key) const;
    /// Whether any of the entries differs from what is here.
    enum class Change { Ask, Make };
    bool change(std::string_view section, std::span<const platform::SettingsEntry> entries, Change change);

    /// As a file; nullopt: failed.
    [[nodiscard]] std::optional<std::string> file() const;

private:
    struct Lines;
    std::unique_ptr<Lines> lines_;
};

} // namespace brovin::posix
