#pragma once

#include "platform/file_system.h"
#include "text/strings.h"

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <deque>
#include <functional>
#include <iterator>
#include <memory>
#include <optional>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

namespace brovin::fakes {

enum class FileOperation {
    Open,
    List,
    Enter,
    Leave,
    Facts,
    Head,
    Holds,
    FolderSize,
    DeleteFile,
    DeleteFolder,
    Trash
};

/// A disk in memory. Its root is "/", it lists in the order in which things were added, and it lowers the
/// case of ASCII letters only. Paths are full and have no slash at the end.
class FakeFileSystem final : public platform::FileSystem {
public:
    struct Asked {
        FileOperation operation;
        std::string path;
        platform::Force force = platform::Force::No; ///< of deletions
        friend bool operator==(const Asked&, const Asked&) = default;
    };

    std::uint64_t device = 1; ///< the number that this disk has
    std::string diskName;     ///< what it was named when it was formatted; "": that is not told
    std::string born;         ///< of every folder
    std::vector<Asked> asked; ///< every call in order, whether it failed or not
    bool hasTrash = true;
    std::vector<std::string> deleted; ///< what deleteFile and deleteFolder took away, in order

    /// What fails with "Permission denied", by the path that it works on; Leave by the folder that is left. A
    /// DeleteFile here also stops the deletion of a folder around it.
    std::set<std::pair<FileOperation, std::string>> failing;

    /// Parents are made. A folder that is there stays as it is.
    void addFolder(std::string_view path) {
        for (std::size_t end = 1; end < path.size(); ++end) {
            end = std::min(path.find('/', end), path.size());
            if (find(path.substr(0, end)) == nullptr)
                items_.push_back(
                    {std::string(path.substr(0, end)), platform::EntryKind::Folder, 0, false, ++lastInode_});
        }
    }

    /// Parents are made.
    void addFile(std::string_view path, std::uint64_t bytes = 0) {
        addFolder(parentOf(path));
        items_.push_back({std::string(path), platform::EntryKind::File, bytes, false, ++lastInode_});
    }

    void setContent(std::string_view path, std::string content) {
        find(path)->bytes = content.size();
        find(path)->content = std::move(content);
    }

    void setReadOnly(std::string_view path) { find(path)->readOnly = true; }

    /// Takes a file or a whole folder away, as another program would. It is not recorded.
    void remove(std::string_view path) {
        std::erase_if(items_, [path](const Item& item) { return isWithin(item.path, path); });
    }

    [[nodiscard]] bool exists(std::string_view path) { return find(path) != nullptr; }

    /// All paths that are there, sorted, without the root.
    [[nodiscard]] std::vector<std::string> tree() const {
        std::set<std::string> paths;
        for (const Item& item : items_)
            paths.insert(item.path);
        return {std::next(paths.begin()), paths.end()};
    }

    platform::Result<std::unique_ptr<platform::FolderWalk>> open(const std::string& path) override {
        const std::string plain = path.substr(0, path.find_last_not_of('/') + 1);
        if (!ask(FileOperation::Open, path))
            return failure(EACCES);
        const Item* item = path.empty() ? nullptr : find(plain);
        if (item == nullptr || !item->isFolder())
            return failure(item == nullptr ? ENOENT : ENOTDIR);
        return std::unique_ptr<platform::FolderWalk>(std::make_unique<Walk>(*this, plain));
    }

    [[nodiscard]] std::optional<std::string> findWithoutCase(const std::string& loweredPath) override {
        if (!loweredPath.starts_with('/'))
            return std::nullopt;
        std::string found;
        for (const std::string_view name : text::split(loweredPath, '/')) {
            if (name.empty())
                continue;
            const auto fits = [&](const Item& item) {
                return item.isIn(found) && text::asciiLower(item.name()) == name;
            };
            const Item* item = find(found + "/" + std::string(name));
            if (item == nullptr && std::count_if(items_.begin(), items_.end(), fits) == 1)
                item = &*std::find_if(items_.begin(), items_.end(), fits);
            if (item == nullptr)
                return std::nullopt;
            found = item->path;
        }
        return found.empty() ? "/" : found;
    }

private:
    struct Item {
        std::string path; ///< of the root: empty
        platform::EntryKind kind;
        std::uint64_t bytes = 0;
        bool readOnly = false;
        std::uint64_t inode = 0;
        std::int64_t modified = 0;
        std::string content = {};

        [[nodiscard]] bool isFolder() const { return kind == platform::EntryKind::Folder; }
        [[nodiscard]] bool isIn(std::string_view folder) const {
            return !path.empty() && parentOf(path) == folder;
        }
        [[nodiscard]] std::string_view name() const {
            return std::string_view(path).substr(path.rfind('/') + 1);
        }
    };

    class Walk final : public platform::FolderWalk {
    public:
        Walk(FakeFileSystem& disk, std::string path) : disk_(disk), root_(path), path_(std::move(path)) {}

        platform::Result<platform::FolderIdentity> identity() override {
            const Item* folder = disk_.find(path_);
            if (folder == nullptr)
                return failure(ENOENT);
            return platform::FolderIdentity{disk_.device, folder->inode, path_, disk_.born, disk_.diskName};
        }

        platform::Result<std::span<const platform::Entry>> list() override {
            forget();
            if (over_ || !disk_.ask(FileOperation::List, path_.empty() ? "/" : path_))
                return failure(EACCES);
            for (const Item& item : disk_.items_) {
                if (!item.isIn(path_))
                    continue;
                const std::string& trueName = names_.emplace_back(item.name());
                entries_.push_back({names_.emplace_back(shown(trueName)), trueName, item.kind});
            }
            return std::span<const platform::Entry>(entries_);
        }

        platform::Result<std::span<const platform::Entry>> listMore() override {
            return std::span<const platform::Entry>();
        }

        void whileWaiting(std::function<bool()>) override {} // this disk is never slow

        platform::Status enter(std::string_view trueName) override {
            const auto folder = ask(FileOperation::Enter, trueName, platform::EntryKind::Folder);
            if (!folder)
                return folder.failure();
            forget();
            path_ = (*folder)->path;
            return platform::Done{};
        }

        platform::Status leave() override {
            if (path_ == root_)
                return failure(EINVAL);
            forget();
            over_ = over_ || !disk_.ask(FileOperation::Leave, path_);
            if (over_)
                return failure(EACCES);
            path_ = parentOf(path_);
            return platform::Done{};
        }

        platform::Result<platform::EntryFacts> facts(std::string_view trueName) override {
            const auto item = ask(FileOperation::Facts, trueName, std::nullopt);
            if (!item)
                return item.failure();
            return platform::EntryFacts{(*item)->kind, (*item)->bytes, (*item)->modified, disk_.device,
                                        (*item)->inode};
        }

        platform::Result<std::size_t> head(std::string_view trueName,
                                           std::span<std::uint8_t> memory) override {
            const auto file = ask(FileOperation::Head, trueName, platform::EntryKind::File);
            if (!file)
                return file.failure();
            std::string content = (*file)->content;
            content.resize((*file)->bytes); // where nobody has said what is in it: zeros
            std::copy_n(content.begin(), std::min(content.size(), memory.size()), memory.begin());
            return std::min(content.size(), memory.size());
        }

        platform::Result<bool> holds(std::string_view name,
                                     const std::function<bool(std::string_view)>& wanted) override {
            const auto folder = ask(FileOperation::Holds, name, platform::EntryKind::Folder);
            if (!folder)
                return folder.failure();
            const std::string& top = (*folder)->path;
            return std::any_of(disk_.items_.begin(), disk_.items_.end(), [&](const Item& item) {
                return item.path.size() > top.size() && isWithin(item.path, top) &&
                       wanted(shown(item.name()));
            });
        }

        platform::Result<std::uint64_t> folderSize(std::string_view trueName) override {
            const auto folder = ask(FileOperation::FolderSize, trueName, platform::EntryKind::Folder);
            if (!folder)
                return folder.failure();
            std::uint64_t total = 0;
            for (const Item& item : disk_.items_)
                total += isWithin(item.path, (*folder)->path) ? item.bytes : 0;
            return total;
        }

        platform::Status deleteFile(std::string_view trueName, platform::Force force) override {
            const auto file = ask(FileOperation::DeleteFile, trueName, platform::EntryKind::File, force);
            return file ? disk_.take(std::string((*file)->path), force) : file.failure();
        }

        platform::Status deleteFolder(std::string_view trueName, platform::Force force) override {
            const auto folder =
                ask(FileOperation::DeleteFolder, trueName, platform::EntryKind::Folder, force);
            return folder ? disk_.take(std::string((*folder)->path), force) : folder.failure();
        }

        platform::Status moveToTrash(std::string_view trueName, platform::EntryKind kind,
                                     platform::Force force) override {
            const auto entry = ask(FileOperation::Trash, trueName, kind, force);
            if (entry && !disk_.hasTrash)
                return platform::Failure{platform::kNoTrash, "There is no trash on its disk"};
            return entry ? disk_.take(std::string((*entry)->path), force) : entry.failure();
        }

        [[nodiscard]] bool isInTrash() override { return path_.find("/.Trash-") != std::string::npos; }

    private:
        static std::string shown(std::string_view trueName) {
            return text::asciiLower(text::replaceAll(text::replaceAll(trueName, "\r", "?"), "\uF00D", "?"));
        }

        /// Records the call and finds the entry that it is about.
        platform::Result<Item*> ask(FileOperation operation, std::string_view name,
                                    std::optional<platform::EntryKind> kind,
                                    platform::Force force = platform::Force::No) {
            const std::string path = path_ + "/" + std::string(name);
            if (over_ || !disk_.ask(operation, path, force))
                return failure(EACCES);
            Item* item = disk_.find(path);
            if (item == nullptr || !item->isIn(path_))
                return failure(ENOENT);
            if (kind && item->kind != *kind)
                return failure(item->isFolder() ? EISDIR : ENOTDIR);
            return item;
        }

        void forget() {
            entries_.clear();
            names_.clear();
        }

        FakeFileSystem& disk_;
        std::string root_;
        std::string path_;
        std::deque<std::string> names_;
        std::vector<platform::Entry> entries_;
        bool over_ = false;
    };

    static std::string_view parentOf(std::string_view path) { return path.substr(0, path.rfind('/')); }

    /// Whether a path is the tree's top or lies below it.
    static bool isWithin(std::string_view path, std::string_view top) {
        return path.starts_with(top) && (path.size() == top.size() || path[top.size()] == '/');
    }

    static platform::Failure failure(int number) { return {number, std::generic_category().message(number)}; }

    Item* find(std::string_view path) {
        const auto it = std::find_if(items_.begin(), items_.end(),
                                     [path](const Item& item) { return item.path == path; });
        return it == items_.end() ? nullptr : &*it;
    }

    /// Records the call. False: it is one that fails.
    bool ask(FileOperation operation, const std::string& path, platform::Force force = platform::Force::No) {
        asked.push_back({operation, path, force});
        return !failing.contains({operation, path});
    }

    /// All of a tree goes, or nothing.
    platform::Status take(const std::string& path, platform::Force force) {
        for (const Item& item : items_) {
            if (isWithin(item.path, path) && item.readOnly && force == platform::Force::No)
                return platform::Failure{EACCES, "Is read-only"};
            if (isWithin(item.path, path) && failing.contains({FileOperation::DeleteFile, item.path}))
                return failure(EACCES);
        }
        deleted.push_back(path);
        remove(path);
        return platform::Done{};
    }

    std::vector<Item> items_{{"", platform::EntryKind::Folder}};
    std::uint64_t lastInode_ = 0;
};

} // namespace brovin::fakes
