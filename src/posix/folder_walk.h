#pragma once

#include "platform/file_system.h"
#include "posix/descriptor.h"
#include "posix/folder_chain.h"
#include "posix/folder_list.h"
#include "posix/plain_name.h"

namespace brovin::posix {

/// A walk over a real disk. All that it does goes by an open folder and the name of an entry in it, never by
/// a path.
class PosixFolderWalk final : public platform::FolderWalk {
public:
    /// `root` is a folder that is open for reading.
    explicit PosixFolderWalk(Descriptor root);

    platform::Result<std::span<const platform::Entry>> list() override;
    platform::Status enter(std::string_view trueName) override;
    platform::Status leave() override;
    platform::Result<std::uint64_t> fileLength(std::string_view trueName) override;
    platform::Result<std::uint64_t> folderSize(std::string_view trueName) override;
    platform::Status deleteFile(std::string_view trueName, platform::Force force) override;
    platform::Status deleteFolder(std::string_view trueName, platform::Force force) override;

private:
    platform::Status check(const PlainName& name) const;

    Descriptor root_;
    FolderChain chain_;
    FolderList list_;
    bool fromStart_ = true; ///< the current folder's descriptor stands before its first entry
    bool over_ = false;
};

} // namespace brovin::posix
