#pragma once

#include "companion/announcer.h"
#include "companion/phrase_engine.h"
#include "language/message_table.h"

namespace brovin::cleaner {

/// What it takes to tell the user something.
struct Speech {
    const language::MessageTable& messages;
    companion::PhraseEngine& phrases;
    companion::Announcer& announcer;
};

} // namespace brovin::cleaner
