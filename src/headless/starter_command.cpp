#include "headless/starter_command.h"

#include "language/message_table.h"

#include <ostream>

namespace brovin::headless {

std::string_view nameOf(cleaner::Origin origin) {
    if (origin == cleaner::Origin::Safe)
        return "safe";
    return origin == cleaner::Origin::Caution ? "caution" : "trash";
}

void printStarterNames(std::ostream& out) {
    const language::MessageTable english;
    for (const cleaner::KnownName& known : cleaner::knownNames())
        if (known.origin != cleaner::Origin::Trash)
            out << known.name << '\t' << nameOf(known.origin) << '\t' << english.getText(known.told) << '\n';
}

} // namespace brovin::headless
