#pragma once

namespace brovin::ui {

/// Where the program is in its life.
struct ProgramLife {
    /// Start-up is under way: handlers leave alone what code has set.
    bool loading = false;
    /// The program is on its way out, and nothing holds it any more: the user has confirmed it, or an update
    /// takes its place. It ends when the running handler returns.
    bool exitConfirmed = false;
};

} // namespace brovin::ui
