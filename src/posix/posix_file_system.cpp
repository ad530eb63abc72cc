#include "posix/posix_file_system.h"

#include "posix/folder_walk.h"
#include "posix/name_lookup.h"
#include "posix/open_folder.h"
#include "posix/system_call.h"

namespace brovin::posix {
namespace {

/// Only such a path means the same folder wherever the program was started.
bool isFullPath(const std::string& path) {
    return path.starts_with('/') && path.find('\0') == std::string::npos;
}

} // namespace

platform::Result<std::unique_ptr<platform::FolderWalk>> PosixFileSystem::open(const std::string& path) {
    if (!isFullPath(path))
        return systemFailure(EINVAL);
    platform::Result<Descriptor> root = openFolder(path);
    if (!root)
        return root.failure();
    return std::unique_ptr<platform::FolderWalk>(std::make_unique<PosixFolderWalk>(std::move(*root), when_));
}

std::optional<std::string> PosixFileSystem::findWithoutCase(const std::string& loweredPath) {
    return isFullPath(loweredPath) ? findPathWithoutCase(loweredPath) : std::nullopt;
}

} // namespace brovin::posix
