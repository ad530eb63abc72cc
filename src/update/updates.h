#pragma once

#include "update/update_check.h"

#include <optional>

namespace brovin::update {

/// The room put together: the check with its button, or, where something else keeps the program up to date,
/// controls that are off and say why.
class Updates {
public:
    /// Without a machine, something else does.
    Updates(const UpdateCheck::Needs& needs, const Machine* machine);
    Updates(const Updates&) = delete;
    Updates& operator=(const Updates&) = delete;

    /// An installer has been started, and the program is to make room for it.
    ui::Event<> replaced;

    void checkForUpdates();
    void cmdUpdate_Click();
    /// What the controls say here and no language file knows.
    void tellWhoUpdates();

private:
    ui::ProgramPage& page_;
    const language::MessageTable& messages_;
    std::optional<UpdateCheck> check_;
};

} // namespace brovin::update
