#pragma once

#include "platform/log_on_entry.h"

#include <QString>

namespace brovin::desktop {

/// An autostart entry of this user's (freedesktop.org, Desktop Application Autostart Specification).
class AutostartEntry final : public platform::LogOnEntry {
public:
    /// `file` by its full path; its folder is made with it.
    explicit AutostartEntry(QString file) : file_(std::move(file)) {}

    [[nodiscard]] bool present() const override;
    bool add(const std::string& program) override;
    bool remove() override;

private:
    QString file_;
};

} // namespace brovin::desktop
