#pragma once

#include "platform/file_system.h"
#include "posix/disk_pace.h"

namespace brovin::posix {

/// The disks of this machine.
class PosixFileSystem final : public platform::FileSystem {
public:
    explicit PosixFileSystem(ReadingAhead when = ReadingAhead::WhereSlow) : when_(when) {}

    platform::Result<std::unique_ptr<platform::FolderWalk>> open(const std::string& path) override;
    [[nodiscard]] std::optional<std::string> findWithoutCase(const std::string& loweredPath) override;

private:
    ReadingAhead when_;
};

} // namespace brovin::posix
