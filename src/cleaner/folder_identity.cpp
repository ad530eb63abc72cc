#include "cleaner/folder_identity.h"

#include <optional>
#include <utility>

namespace brovin::cleaner {
namespace {

struct Stored {
    std::string_view device;
    std::string_view disk; ///< "": was not known
    std::string_view inode;
    std::string_view born; ///< "": was not known
    std::string_view path;
};

/// What stands in front of the first sign of this kind, and behind it; all of it in front, where there is
/// none.
std::pair<std::string_view, std::string_view> splitAt(std::string_view text, char sign) {
    const std::size_t at = text.find(sign);
    if (at == std::string_view::npos)
        return {text, {}};
    return {text.substr(0, at), text.substr(at + 1)};
}

std::optional<Stored> parse(std::string_view text) {
    if (text.find(':') == std::string_view::npos)
        return std::nullopt;
    const auto [device, folder] = splitAt(text, ':');
    const auto [number, path] = splitAt(folder, ':');
    const auto [inode, born] = splitAt(number, '@');
    const auto [deviceNumber, disk] = splitAt(device, '/');
    return Stored{deviceNumber, disk, inode, born, path};
}

/// Whether what is known of both times differs.
bool differ(std::string_view stored, const std::string& found) {
    return !stored.empty() && !found.empty() && stored != found;
}

} // namespace

std::string identityText(const platform::FolderIdentity& identity) {
    return std::to_string(identity.device) + (identity.disk.empty() ? "" : "/" + identity.disk) + ":" +
           std::to_string(identity.inode) + (identity.born.empty() ? "" : "@" + identity.born) + ":" +
           identity.path;
}

bool isTheSame(std::string_view text, const platform::FolderIdentity& found) {
    if (text.empty())
        return true;
    const auto stored = parse(text);
    return stored && !differ(stored->disk, found.disk) && !differ(stored->born, found.born) &&
           stored->inode == std::to_string(found.inode) && stored->path == found.path;
}

bool isOnAnotherDisk(std::string_view text, const platform::FolderIdentity& found) {
    const auto stored = parse(text);
    if (!stored || isTheSame(text, found) || stored->path != found.path)
        return false;
    const bool named = !stored->disk.empty() && !found.disk.empty();
    return named ? differ(stored->disk, found.disk) : stored->device != std::to_string(found.device);
}

} // namespace brovin::cleaner
