#pragma once

#include "platform/file_system.h"

namespace brovin::posix {

/// The disks of this machine.
class PosixFileSystem final : public platform::FileSystem {
public:
    platform::Result<std::unique_ptr<platform::FolderWalk>> open(const std::string& path) override;
    [[nodiscard]] std::optional<std::string> findWithoutCase(const std::string& loweredPath) override;
};

} // namespace brovin::posix
