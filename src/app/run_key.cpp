#include "app/run_key.h"

namespace brovin::app {
namespace {
constexpr std::string_view kKeyPath = "SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Run";
constexpr std::string_view kValueName = "Brovin";
} // namespace

bool RunKey::present() const {
    return !registry_.read(kKeyPath, kValueName).value_or("").empty();
}

void RunKey::chkStartWindows_Click() {
    if (form_.loading)
        return;
    // A refusal leaves the entry as it was; the box tells the truth again from the next start on.
    if (present())
        registry_.remove(kKeyPath, kValueName);
    else
        registry_.write(kKeyPath, kValueName, command_);
}

} // namespace brovin::app
