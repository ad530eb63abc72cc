#include "app/log_on.h"

namespace brovin::app {

void LogOn::chkStartWindows_Click() {
    if (form_.loading)
        return;
    // A refusal leaves the entry as it was; the box tells the truth again from the next start on.
    if (entry_.present())
        entry_.remove();
    else
        entry_.add(program_);
}

} // namespace brovin::app
