#include "cleaner/folder_identity.h"

namespace brovin::cleaner {

std::string identityText(const platform::FolderIdentity& identity) {
    return std::to_string(identity.device) + ":" + std::to_string(identity.inode) + ":" + identity.path;
}

bool isTheSame(std::string_view stored, const platform::FolderIdentity& found) {
    if (stored.empty())
        return true;
    const std::size_t device = stored.find(':');
    if (device == std::string_view::npos)
        return false;
    const std::string now = identityText(found);
    return stored.substr(device) == std::string_view(now).substr(now.find(':'));
}

bool isOnAnotherDisk(std::string_view stored, const platform::FolderIdentity& found) {
    if (isTheSame(stored, found))
        return false;
    const std::size_t device = stored.find(':');
    const std::size_t inode = device == std::string_view::npos ? device : stored.find(':', device + 1);
    return inode != std::string_view::npos && stored.substr(inode + 1) == found.path &&
           stored.substr(0, device) != std::to_string(found.device);
}

} // namespace brovin::cleaner
