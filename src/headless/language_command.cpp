#include "headless/language_command.h"

#include "language/language_check.h"
#include "language/language_file.h"
#include "text/utf8.h"

#include <fstream>
#include <ostream>

namespace brovin::headless {

ExitStatus checkLanguageCommand(const std::string& file, std::ostream& out, std::ostream& err) {
    // One sign more than is ever read of a language file, so that a larger one is known to be too large.
    std::string bytes(language::kLargestFile + 1, '\0');
    std::ifstream stream(file, std::ios::binary);
    stream.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    if (!stream.eof() && stream.fail()) {
        err << "brovin: " << file << " cannot be read\n";
        return ExitStatus::BadUsage;
    }
    bytes.resize(static_cast<std::size_t>(stream.gcount()));
    const auto faults = language::checkLanguage(bytes);
    for (const std::string_view key : faults.missing)
        out << file << ": " << key << " is missing\n";
    for (const auto& [line, what] : faults.others) {
        out << file << ":";
        if (line > 0)
            out << line << ":";
        out << " " << text::displayText(what) << "\n"; // a stranger's file gives a terminal no orders
    }
    return faults.none() ? ExitStatus::Done : ExitStatus::SomeFailed;
}

} // namespace brovin::headless
