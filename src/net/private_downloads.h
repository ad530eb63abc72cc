#pragma once

#include "platform/download_folder.h"
#include "posix/descriptor.h"

#include <memory>
#include <string>

namespace brovin::net {

/// A folder for this user's downloads inside the system's temporary folder: his own, mode 0700. It is opened
/// once for each operation, never through a link, and everything in it is reached through the open folder.
class PrivateDownloads final : public platform::DownloadFolder {
public:
    /// `path` is made when it is missing.
    explicit PrivateDownloads(std::string path) : path_(std::move(path)) {}

    void removeLeftOvers(std::string_view prefix, std::string_view ending) override;
    platform::Result<std::unique_ptr<platform::DownloadFile>> create(std::string_view prefix) override;

private:
    [[nodiscard]] platform::Result<posix::Descriptor> open() const;

    std::string path_;
};

/// Its usual place.
[[nodiscard]] std::string downloadFolderPath();

} // namespace brovin::net
