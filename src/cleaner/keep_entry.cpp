#include "cleaner/keep_entry.h"

#include "platform/file_system.h"
#include "text/strings.h"

namespace brovin::cleaner {
namespace {

/// A listed folder gives carriage returns so.
std::string seen(std::string_view text) {
    return text::replaceAll(text::replaceAll(text, "\r", "?"), "\uF00D", "?");
}

} // namespace

std::string keepEntry(std::string_view line) {
    constexpr char kSlash = platform::kPathSeparator;
    if (line.empty() || line == "." || line == ".." || line.find('\0') != std::string_view::npos)
        return {};
    if (line.find(kSlash) == std::string_view::npos)
        return seen(line);
    if (line.front() != kSlash)
        return {};
    std::string path;
    for (const std::string_view name : text::split(line, kSlash)) {
        if (name == "..")
            return {};
        if (!name.empty() && name != ".")
            path.append(1, kSlash).append(name);
    }
    return path.empty() ? std::string(1, kSlash) : seen(path);
}

} // namespace brovin::cleaner
