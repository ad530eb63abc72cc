#pragma once

#include "platform/registry.h"
#include "ui/frm_options.h"

#include <string>

namespace brovin::app {

/// The entry that makes the desktop start the program when the user logs on.
class RunKey {
public:
    /// `command` is what the desktop is to start.
    RunKey(ui::FrmOptions& form, platform::Registry& registry, std::string command)
        : form_(form), registry_(registry), command_(std::move(command)) {}

    [[nodiscard]] bool present() const;
    /// Turns the entry over, whatever the box shows: the two may disagree, and the click then mends that.
    void chkStartWindows_Click();

private:
    ui::FrmOptions& form_;
    platform::Registry& registry_;
    std::string command_;
};

} // namespace brovin::app
