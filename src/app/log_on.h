#pragma once

#include "platform/log_on_entry.h"
#include "ui/frm_options.h"

#include <string>

namespace brovin::app {

/// Whether the desktop starts the program when the user logs on.
class LogOn {
public:
    /// `program` is what the desktop is to start, by its full path.
    LogOn(ui::FrmOptions& form, platform::LogOnEntry& entry, std::string program)
        : form_(form), entry_(entry), program_(std::move(program)) {}

    [[nodiscard]] bool starts() const { return entry_.present(); }
    /// Turns the entry over, whatever the box shows: the two may disagree, and the click then mends that.
    void chkStartWindows_Click();

private:
    ui::FrmOptions& form_;
    platform::LogOnEntry& entry_;
    std::string program_;
};

} // namespace brovin::app
