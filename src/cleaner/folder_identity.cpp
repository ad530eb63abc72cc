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

} // namespace brovin::cleaner
