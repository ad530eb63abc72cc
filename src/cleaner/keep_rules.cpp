#include "cleaner/keep_rules.h"

#include "cleaner/keep_entry.h"

#include <map>

namespace brovin::cleaner {
namespace {

std::string withSlash(std::string_view path) {
    std::string result(path);
    if (!result.ends_with(platform::kPathSeparator))
        result.push_back(platform::kPathSeparator);
    return result;
}

/// Where the folder really is; "": it is not to be had.
std::string realPath(platform::FileSystem& files, const std::string& folder) {
    const auto found = files.findWithoutCase(folder);
    if (!found)
        return {};
    const auto walk = files.open(*found);
    const auto identity = walk ? (*walk)->identity() : walk.failure();
    return identity ? identity->path : std::string();
}

} // namespace

KeepRules::KeepRules(const std::vector<ui::ListControl::Item>& items, platform::FileSystem& files,
                     const platform::Letters& letters)
    : names_({}), ends_({}) {
    std::vector<ui::ListControl::Item> names;
    std::map<std::string, std::string> real; // of the folders in which kept entries are
    for (const auto& item : items) {
        const std::string entry = keepEntry(item.text);
        if (entry.empty())
            continue;
        if (entry.front() != platform::kPathSeparator) {
            names.push_back({entry, 0});
            continue;
        }
        addPath(entry);
        const std::size_t end = entry.rfind(platform::kPathSeparator);
        const auto [folder, isNew] = real.try_emplace(entry.substr(0, end + 1));
        if (isNew)
            folder->second = letters.lowerCase(realPath(files, folder->first));
        if (!folder->second.empty())
            addPath(withSlash(folder->second) + entry.substr(end + 1));
    }
    names_ = NameSet(names);
    std::vector<ui::ListControl::Item> ends;
    for (const std::string& path : paths_)
        ends.push_back({path.substr(path.rfind(platform::kPathSeparator) + 1), 0});
    ends_ = NameSet(ends);
}

void KeepRules::addPath(std::string path) {
    while (path.ends_with(platform::kPathSeparator))
        path.pop_back();
    paths_.insert(std::move(path));
}

bool KeepRules::begin(std::string_view shownPath, std::string_view realPath) {
    tops_.clear();
    for (const std::string_view path : {shownPath, realPath})
        if (!path.empty())
            tops_.push_back(withSlash(path));
    for (const std::string& top : tops_)
        for (std::size_t end = top.find(platform::kPathSeparator); end != std::string::npos;
             end = top.find(platform::kPathSeparator, end + 1))
            if (paths_.contains(std::string_view(top).substr(0, end)))
                return true;
    return false;
}

bool KeepRules::keeps(std::string_view below, std::string_view name) const {
    if (names_.contains(name))
        return true;
    if (!ends_.contains(name))
        return false;
    for (const std::string& top : tops_)
        if (paths_.contains(std::string(top).append(below).append(name)))
            return true;
    return false;
}

bool KeepRules::isBelow(std::string_view folder) const {
    const auto next = paths_.lower_bound(folder);
    return next != paths_.end() && next->starts_with(folder);
}

bool KeepRules::keepsWithin(platform::FolderEntries& entries, std::string_view below,
                            const platform::Entry& folder) const {
    bool paths = false;
    for (const std::string& top : tops_)
        paths = paths || isBelow(withSlash(std::string(top).append(below).append(folder.name)));
    if (!paths && names_.empty())
        return false;
    const auto held = entries.holds(folder.trueName, [this, paths](std::string_view name) {
        return names_.contains(name) || (paths && ends_.contains(name));
    });
    return !held || *held; // what nobody can look into may hold it
}

} // namespace brovin::cleaner
