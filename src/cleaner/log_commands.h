#pragma once

#include "companion/speech.h"
#include "platform/clock.h"
#include "platform/program_folder.h"
#include "platform/regional.h"
#include "platform/result.h"
#include "platform/shell.h"

namespace brovin::cleaner {

/// The buttons that open and empty the deletion log.
class LogCommands {
public:
    struct Needs {
        companion::Speech speech;
        platform::ProgramFolder& folder;
        platform::Shell& shell;
        const platform::Clock& clock;
        const platform::Regional& regional;
    };
    explicit LogCommands(const Needs& needs) : needs_(needs) {}

    void cmdInspect_Click();
    void cmdEmpty_Click();

private:
    platform::Status empty();

    Needs needs_;
};

} // namespace brovin::cleaner
