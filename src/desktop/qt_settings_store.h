#pragma once

#include "platform/settings_store.h"

#include <QSettings>

#include <memory>

namespace brovin::desktop {

/// The settings in an INI file. Every write replaces the file in one step, so that a kill at any moment
/// leaves the old or the new one.
class QtSettingsStore final : public platform::SettingsStore {
public:
    /// `path` of the file; it and its folder are made at the first write.
    explicit QtSettingsStore(const QString& path);

    /// The copy that was made of a file with lines that cannot be read, before they are lost by the next
    /// write; empty: there were none.
    [[nodiscard]] const QString& damagedCopy() const { return damagedCopy_; }

    [[nodiscard]] std::optional<std::string> read(std::string_view section, std::string_view key) override;
    [[nodiscard]] std::string location() const override;
    [[nodiscard]] bool write(std::string_view section,
                             std::span<const platform::SettingsEntry> entries) override;

private:
    QString path_;
    QString damagedCopy_;
    std::unique_ptr<QSettings> file_;
};

} // namespace brovin::desktop
