#pragma once

#include "platform/registry.h"

#include <QString>

namespace brovin::desktop {

/// What the desktop starts at log-on, as values of the one key that this desktop has: the value named N is
/// the autostart entry n.desktop (freedesktop.org, Desktop Application Autostart Specification), its text the
/// command.
class AutostartRegistry final : public platform::Registry {
public:
    /// `folder` of the user's autostart entries.
    explicit AutostartRegistry(const QString& folder) : folder_(folder) {}

    [[nodiscard]] std::optional<std::string> read(std::string_view keyPath,
                                                  std::string_view valueName) override;
    bool write(std::string_view keyPath, std::string_view valueName, const std::string& value) override;
    bool remove(std::string_view keyPath, std::string_view valueName) override;

private:
    [[nodiscard]] QString fileOf(std::string_view valueName) const;

    QString folder_;
};

} // namespace brovin::desktop
