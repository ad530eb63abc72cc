#include "cleaner/preview_rows.h"

#include <algorithm>

namespace brovin::cleaner {
namespace {

constexpr char kBetween = platform::kPathSeparator;

} // namespace

void PreviewRows::clear() {
    rows_.clear();
    rows_.shrink_to_fit();
    marks_ = {};
    bytes_ = {};
    folders_ = {};
    texts_.clear();
    free_ = nullptr;
    room_ = 0;
    path_.clear();
    levels_.clear();
}

/// Keeps a text as long as the rows, side by side with others.
std::string_view PreviewRows::keep(std::string_view text) {
    constexpr std::size_t kBlock = std::size_t{64} * 1024;
    if (text.size() > room_) {
        room_ = std::max(kBlock, text.size());
        texts_.push_back(std::make_unique<char[]>(room_));
        free_ = texts_.back().get();
    }
    const std::string_view kept(free_, text.size());
    std::copy(text.begin(), text.end(), free_);
    free_ += text.size();
    room_ -= text.size();
    return kept;
}

void PreviewRows::push(std::string_view name, std::uint32_t parent, std::size_t length) {
    levels_.push_back({static_cast<std::uint32_t>(folders_.size()), length});
    folders_.push_back({keep(name), parent, static_cast<std::uint32_t>(rows_.size()), 0});
}

void PreviewRows::beginTop(const std::string& truePath) {
    levels_.clear();
    path_ = truePath;
    if (!path_.ends_with(kBetween))
        path_.push_back(kBetween);
    push(path_, kNone, path_.size());
}

/// Goes up to where both ways part, and down from there. A sweep is through with a folder when it leaves it.
void PreviewRows::enter(std::string_view path) {
    const auto parted = std::mismatch(path_.begin(), path_.end(), path.begin(), path.end()).first;
    const auto common = static_cast<std::size_t>(parted - path_.begin());
    while (levels_.size() > 1 && levels_.back().length > common)
        levels_.pop_back();
    for (std::size_t begin = levels_.back().length; begin < path.size();) {
        const std::size_t end = path.find(kBetween, begin);
        push(path.substr(begin, end - begin), levels_.back().folder, end + 1);
        begin = end + 1;
    }
    path_ = path;
}

void PreviewRows::add(const Deletion& deletion) {
    if (deletion.folder != path_)
        enter(deletion.folder);
    Folder& folder = folders_[levels_.back().folder];
    if (folder.rows++ == 0)
        folder.firstRow = static_cast<std::uint32_t>(rows_.size());
    PreviewRow row;
    row.name = keep(deletion.name);
    row.facts = deletion.facts.value_or(platform::EntryFacts{});
    row.facts.kind = deletion.kind;
    row.folder = levels_.back().folder;
    row.why = deletion.match;
    rows_.push_back(row);
    marks_.emplace_back();
    bytes_.push_back(deletion.bytes);
}

PreviewRows::Sum PreviewRows::chosen() const {
    Sum sum;
    for (std::size_t row = 0; row < marks_.size(); ++row) {
        sum.rows += marks_[row].chosen ? 1 : 0;
        sum.bytes += marks_[row].chosen ? bytes_[row] : 0;
    }
    return sum;
}

std::string PreviewRows::folderPath(std::uint32_t folder) const {
    std::vector<std::uint32_t> way;
    for (std::uint32_t at = folder; at != kNone; at = folders_[at].parent)
        way.push_back(at);
    std::string path(folders_[way.back()].name);
    way.pop_back();
    for (auto at = way.rbegin(); at != way.rend(); ++at)
        path.append(folders_[*at].name).push_back(kBetween);
    return path;
}

} // namespace brovin::cleaner
