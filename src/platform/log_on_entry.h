#pragma once

#include <string>

namespace brovin::platform {

/// The entry that makes the desktop start the program when the user logs on.
class LogOnEntry {
public:
    virtual ~LogOnEntry() = default;

    /// Whether the desktop will start something by it. One that starts nothing or is switched off counts as
    /// missing.
    [[nodiscard]] virtual bool present() const = 0;
    /// Makes the entry, in place of one that is there. `program`: the full path of what is to be started.
    /// False: refused, nothing has changed.
    virtual bool add(const std::string& program) = 0;
    /// False: refused or missing, nothing has changed.
    virtual bool remove() = 0;
};

} // namespace brovin::platform
