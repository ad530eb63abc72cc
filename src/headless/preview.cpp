#include "headless/preview.h"

#include "settings/setting_table.h"

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

namespace brovin::headless {
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
    Result<std::uint64_t> fileLength(std::string_view trueName) override {
        return beneath_->fileLength(trueName);
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

bool ScanSettings::write(std::string_view section, std::span<const platform::SettingsEntry> entries) {
    constexpr std::array kStored = {settings::setting::kLastScanned.key, settings::setting::kTotalNuked.key,
                                    settings::setting::kKb.key, settings::setting::kTotalDate.key};
    std::vector<platform::SettingsEntry> stored;
    for (const platform::SettingsEntry& entry : entries)
        if (stores_ == Stores::Totals && section == settings::kSettingsSection &&
            std::find(kStored.begin(), kStored.end(), entry.key) != kStored.end())
            stored.push_back(entry);
    return stored.empty() || beneath_.write(section, stored);
}

} // namespace brovin::headless
