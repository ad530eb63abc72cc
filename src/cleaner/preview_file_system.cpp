#include "cleaner/preview_file_system.h"

#include <functional>
#include <memory>
#include <utility>

namespace brovin::cleaner {
namespace {

using platform::Done;
using platform::Entry;
using platform::Force;
using platform::Result;
using platform::Status;

class PreviewWalk final : public platform::FolderWalk {
public:
    explicit PreviewWalk(std::unique_ptr<platform::FolderWalk> beneath) : beneath_(std::move(beneath)) {}

    void whileWaiting(std::function<bool()> goesOn) override { beneath_->whileWaiting(std::move(goesOn)); }
    Result<platform::FolderIdentity> identity() override { return beneath_->identity(); }
    Result<std::span<const Entry>> list() override { return beneath_->list(); }
    Result<std::span<const Entry>> listMore() override { return beneath_->listMore(); }
    Status enter(std::string_view trueName) override { return beneath_->enter(trueName); }
    Status leave() override { return beneath_->leave(); }
    Result<platform::EntryFacts> facts(std::string_view trueName) override {
        return beneath_->facts(trueName);
    }
    Result<std::size_t> head(std::string_view trueName, std::span<std::uint8_t> memory) override {
        return beneath_->head(trueName, memory);
    }
    Result<bool> holds(std::string_view folder,
                       const std::function<bool(std::string_view)>& wanted) override {
        return beneath_->holds(folder, wanted);
    }
    Result<std::uint64_t> folderSize(std::string_view trueName) override {
        return beneath_->folderSize(trueName);
    }
    Status deleteFile(std::string_view /*trueName*/, Force /*force*/) override { return Done{}; }
    Status deleteFolder(std::string_view /*trueName*/, Force /*force*/) override { return Done{}; }
    Status moveToTrash(std::string_view /*trueName*/, platform::EntryKind /*kind*/,
                       Force /*force*/) override {
        return Done{};
    }
    [[nodiscard]] bool isInTrash() override { return beneath_->isInTrash(); }

private:
    std::unique_ptr<platform::FolderWalk> beneath_;
};

} // namespace

Result<std::unique_ptr<platform::FolderWalk>> PreviewFileSystem::open(const std::string& path) {
    auto walk = beneath_.open(path);
    if (!walk)
        return walk.failure();
    return std::unique_ptr<platform::FolderWalk>(std::make_unique<PreviewWalk>(std::move(*walk)));
}

} // namespace brovin::cleaner
