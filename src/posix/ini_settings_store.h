#pragma once

#include "platform/settings_store.h"

#include <memory>
#include <string>

namespace brovin::posix {

/// The settings in an INI file. A write replaces the file in one step, so that a kill or a power failure at
/// any moment leaves the old or the new one; a lock beside it keeps two writers from losing each other's. A
/// read looks first whether another process has stored something. Bytes that are not UTF-8 come back as they
/// were.
class IniSettingsStore final : public platform::SettingsStore {
public:
    /// `path` of the file, or of a link to it; both it and its folder are made at the first write, for this
    /// user alone. What a killed save has left beside it is removed.
    explicit IniSettingsStore(std::string path);
    ~IniSettingsStore() override;
    IniSettingsStore(const IniSettingsStore&) = delete;
    IniSettingsStore& operator=(const IniSettingsStore&) = delete;

    /// Whether the file has lines that mean nothing, or cannot be read at all. Then nobody knows what the
    /// user has chosen.
    [[nodiscard]] bool damaged() const;
    /// The copy that was made of a file with such lines, before the next write loses them; empty: none.
    [[nodiscard]] const std::string& damagedCopy() const;

    [[nodiscard]] std::optional<std::string> read(std::string_view section, std::string_view key) override;
    [[nodiscard]] std::string location() const override { return path_; }
    [[nodiscard]] bool write(std::string_view section,
                             std::span<const platform::SettingsEntry> entries) override;

private:
    struct Content;

    /// Reads the file unless it is the one that was read last.
    void refresh();

    std::string path_;
    std::unique_ptr<Content> content_; ///< as it was read; a write that failed leaves none
    std::string damagedCopy_;
};

} // namespace brovin::posix
