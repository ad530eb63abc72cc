#include "cleaner/folder_identity.h"

#include <optional>

namespace brovin::cleaner {
namespace {

struct Stored {
    std::string_view device;
    std::string_view disk;   ///< "": was not known
    std::string_view folder; ///< its inode and path
};

std::optional<Stored> parse(std::string_view text) {
    const std::size_t colon = text.find(':');
    if (colon == std::string_view::npos)
        return std::nullopt;
    const std::string_view device = text.substr(0, colon);
    const std::size_t slash = device.find('/');
    return Stored{device.substr(0, slash),
                  slash == std::string_view::npos ? std::string_view() : device.substr(slash + 1),
                  text.substr(colon + 1)};
}

bool namesDiffer(const Stored& stored, const platform::FolderIdentity& found) {
    return !stored.disk.empty() && !found.disk.empty() && stored.disk != found.disk;
}

} // namespace

std::string identityText(const platform::FolderIdentity& identity) {
    return std::to_string(identity.device) + (identity.disk.empty() ? "" : "/" + identity.disk) + ":" +
           std::to_string(identity.inode) + ":" + identity.path;
}

bool isTheSame(std::string_view text, const platform::FolderIdentity& found) {
    if (text.empty())
        return true;
    const auto stored = parse(text);
    return stored && !namesDiffer(*stored, found) &&
           stored->folder == std::to_string(found.inode) + ":" + found.path;
}

bool isOnAnotherDisk(std::string_view text, const platform::FolderIdentity& found) {
    const auto stored = parse(text);
    if (!stored || isTheSame(text, found) ||
        stored->folder.substr(stored->folder.find(':') + 1) != found.path)
        return false;
    const bool named = !stored->disk.empty() && !found.disk.empty();
    return named ? namesDiffer(*stored, found) : stored->device != std::to_string(found.device);
}

} // namespace brovin::cleaner
