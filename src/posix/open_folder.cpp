#include "posix/open_folder.h"

#include "posix/system_call.h"

namespace brovin::posix {

platform::Result<Descriptor> openFolder(const std::string& path) {
    Descriptor folder(uninterrupted([&path] { return ::open(path.c_str(), kFolderFlags); }));
    if (!folder)
        return lastFailure();
    return folder;
}

platform::Result<Descriptor> openFolderIn(int parent, const char* name) {
    Descriptor folder(
        uninterrupted([parent, name] { return ::openat(parent, name, kFolderFlags | O_NOFOLLOW); }));
    if (!folder)
        return lastFailure();
    return folder;
}

} // namespace brovin::posix
