#pragma once

#include "companion/announcer.h"
#include "companion/phrase_engine.h"
#include "language/message_table.h"

namespace brovin::companion {

/// What it takes to tell the user something.
struct Speech {
    const language::MessageTable& messages;
    PhraseEngine& phrases;
    Announcer& announcer;
};

} // namespace brovin::companion
