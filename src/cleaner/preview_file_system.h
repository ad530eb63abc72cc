#pragma once

#include "platform/file_system.h"

namespace brovin::cleaner {

/// A disk on which every deletion succeeds and nothing is deleted: whatever the core does with it, the disk
/// beneath keeps all that it has.
class PreviewFileSystem final : public platform::FileSystem {
public:
    explicit PreviewFileSystem(platform::FileSystem& beneath) : beneath_(beneath) {}

    platform::Result<std::unique_ptr<platform::FolderWalk>> open(const std::string& path) override;
    [[nodiscard]] std::optional<std::string> findWithoutCase(const std::string& loweredPath) override {
        return beneath_.findWithoutCase(loweredPath);
    }

private:
    platform::FileSystem& beneath_;
};

} // namespace brovin::cleaner
