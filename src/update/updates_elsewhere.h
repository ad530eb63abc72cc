#pragma once

#include "language/message_table.h"
#include "ui/pages/program_page.h"

namespace brovin::update {

/// Where something else keeps the program up to date: the controls are off, and say why.
void leaveToOthers(ui::ProgramPage& page, const language::MessageTable& messages);

} // namespace brovin::update
