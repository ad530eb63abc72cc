#pragma once

#include "platform/file_system.h"
#include "posix/descriptor.h"
#include "posix/folder_chain.h"
#include "posix/folder_facts.h"
#include "posix/folder_list.h"
#include "posix/plain_name.h"
#include "posix/read_ahead.h"
#include "posix/trash.h"

#include <functional>
#include <memory>
#include <optional>

namespace brovin::posix {

/// A walk over a real disk. All that it does goes by an open folder and the name of an entry in it, never by
/// a path. Where the disk is slow, the folders that lie before it are opened and listed meanwhile.
class PosixFolderWalk final : public platform::FolderWalk {
public:
    /// `root` is a folder that is open for reading.
    PosixFolderWalk(Descriptor root, ReadingAhead when);

    ~PosixFolderWalk() override;
    PosixFolderWalk(const PosixFolderWalk&) = delete;
    PosixFolderWalk& operator=(const PosixFolderWalk&) = delete;

    void whileWaiting(std::function<bool()> goesOn) override;
    platform::Result<platform::FolderIdentity> identity() override;
    platform::Result<std::span<const platform::Entry>> list() override;
    platform::Result<std::span<const platform::Entry>> listMore() override;
    platform::Status enter(std::string_view trueName) override;
    platform::Status leave() override;
    platform::Result<platform::EntryFacts> facts(std::string_view trueName) override;
    platform::Result<std::size_t> head(std::string_view trueName, std::span<std::uint8_t> memory) override;
    platform::Result<bool> holds(std::string_view folder,
                                 const std::function<bool(std::string_view)>& wanted) override;
    platform::Result<std::uint64_t> folderSize(std::string_view trueName) override;
    platform::Status deleteFile(std::string_view trueName, platform::Force force) override;
    platform::Status deleteFolder(std::string_view trueName, platform::Force force) override;
    platform::Status moveToTrash(std::string_view trueName, platform::EntryKind kind,
                                 platform::Force force) override;
    [[nodiscard]] bool isInTrash() override { return trash_.holds(chain_.current()); }

private:
    platform::Status check(const PlainName& name) const;
    platform::Status beginList();
    platform::Status enterInPlace(const char* name);
    platform::Status readyToDelete(const PlainName& name);
    void notePace();
    void planAhead();
    [[nodiscard]] FolderHandle handle() const { return chain_.depth() == 0 ? root_ : chain_.handle(); }

    FolderHandle root_;
    FolderChain chain_;
    FolderList list_;
    bool fromStart_ = true; ///< the current folder's descriptor stands before its first entry
    bool over_ = false;
    Trash trash_;

    std::function<bool()> patience_;
    LastingNumbers lasting_;
    FolderWatch watch_;
    DiskPace pace_;                      ///< until there is one who reads ahead, who keeps it from then on
    std::shared_ptr<ReadAhead> ahead_;   ///< from when the disk was slow for the first time
    std::optional<FolderRecords> ready_; ///< what was read ahead of the current folder
};

} // namespace brovin::posix
