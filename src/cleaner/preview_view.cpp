#include "cleaner/preview_view.h"

#include "cleaner/sliced_sort.h"
#include "text/strings.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace brovin::cleaner {
namespace {

constexpr std::size_t kSlice = 4096; ///< rows between two looks at what goes on

bool isAscii(std::string_view text) {
    return std::none_of(text.begin(), text.end(), [](char c) { return static_cast<signed char>(c) < 0; });
}

char lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
}

bool lessWithoutCase(std::string_view one, std::string_view other) {
    return std::lexicographical_compare(
        one.begin(), one.end(), other.begin(), other.end(), [](char a, char b) {
            return static_cast<unsigned char>(lower(a)) < static_cast<unsigned char>(lower(b));
        });
}

/// The first bytes of a name as a number that sorts like them.
std::uint64_t beginning(std::string_view name) {
    std::uint64_t key = 0;
    for (std::size_t i = 0; i < sizeof key; ++i)
        key = key << 8U | (i < name.size() ? static_cast<unsigned char>(lower(name[i])) : 0U);
    return key;
}

bool contains(std::string_view text, const std::string& needle, const platform::Letters& letters) {
    if (!isAscii(text))
        return letters.lowerCase(text).find(needle) != std::string::npos;
    return std::search(text.begin(), text.end(), needle.begin(), needle.end(),
                       [](char a, char b) { return lower(a) == b; }) != text.end();
}

} // namespace

/// Lets events go through. True: somebody wishes for another order.
bool PreviewView::superseded() {
    pump_.pump();
    return again_;
}

void PreviewView::clear() {
    lines_.clear();
    folderFits_.clear();
    seen_ = 0;
    again_ = atWork_;
    renewed();
}

void PreviewView::arrange(const Wish& wish) {
    wish_ = wish;
    again_ = true;
    if (atWork_)
        return;
    atWork_ = true;
    while (again_) {
        again_ = false;
        if (arrangeOnce())
            renewed();
    }
    atWork_ = false;
}

/// False: superseded on the way.
bool PreviewView::arrangeOnce() {
    needle_ = letters_.lowerCase(wish_.filter);
    Items items;
    if (!rankFolders() || !findFolders() || !select(items) || !sort(items, wish_.by, wish_.descending))
        return false;
    if (wish_.group != Group::None &&
        !sort(items, wish_.group == Group::Folder ? By::Folder : By::Name, false))
        return false;
    std::vector<Line> lines;
    lines.reserve(items.size());
    for (std::size_t i = 0; i < items.size(); ++i) {
        if (i % kSlice == 0 && superseded())
            return false;
        if (wish_.group != Group::None && (i == 0 || !sameGroup(items[i - 1].row, items[i].row)))
            lines.push_back({items[i].row, true});
        lines.push_back({items[i].row, false});
    }
    lines_ = std::move(lines);
    seen_ = rows_.size();
    return true;
}

void PreviewView::append() {
    if (atWork_ || wish_.group != Group::None)
        return;
    while (folderFits_.size() < rows_.folders().size())
        findFolder(folderFits_.size());
    for (; seen_ < rows_.size(); ++seen_)
        if (shows(rows_[seen_]))
            lines_.push_back({static_cast<std::uint32_t>(seen_), false});
}

std::size_t PreviewView::endOfGroup(std::size_t heading) const {
    std::size_t end = heading + 1;
    while (end < lines_.size() && !lines_[end].heading)
        ++end;
    return end;
}

/// A folder comes behind the one above it, and beside others of that one by its name. A loop and not a
/// recursion, since folders may be nested as deep as anybody likes.
bool PreviewView::rankFolders() {
    ranks_.clear();
    if (wish_.by != By::Folder && wish_.group != Group::Folder)
        return true;
    const auto& folders = rows_.folders();
    std::vector<std::uint32_t> order(folders.size());
    for (std::uint32_t i = 0; i < order.size(); ++i)
        order[i] = i;
    // Those of one folder side by side, the last name first, so that the stack gives them in order.
    const auto less = [&folders](std::uint32_t a, std::uint32_t b) {
        return folders[a].parent != folders[b].parent ? folders[a].parent < folders[b].parent
                                                      : lessWithoutCase(folders[b].name, folders[a].name);
    };
    if (!slicedSort(order, less, [this] { return !superseded(); }))
        return false;
    std::vector<std::uint32_t> waiting;
    const auto take = [&](std::uint32_t parent) {
        const auto first = std::lower_bound(
            order.begin(), order.end(), parent,
            [&folders](std::uint32_t folder, std::uint32_t above) { return folders[folder].parent < above; });
        const auto end = std::find_if(first, order.end(), [&folders, parent](std::uint32_t folder) {
            return folders[folder].parent != parent;
        });
        waiting.insert(waiting.end(), first, end);
    };
    ranks_.resize(folders.size());
    std::uint32_t rank = 0;
    for (take(PreviewRows::kNone); !waiting.empty();) {
        const std::uint32_t folder = waiting.back();
        waiting.pop_back();
        ranks_[folder] = rank++;
        take(folder);
        if (rank % kSlice == 0 && superseded())
            return false;
    }
    return true;
}

bool PreviewView::findFolders() {
    folderFits_.clear();
    for (std::size_t folder = 0; folder < rows_.folders().size(); ++folder) {
        if (folder % kSlice == 0 && superseded())
            return false;
        findFolder(folder);
    }
    return true;
}

/// Whether the filter stands in the path of the folder behind those that are known. That of the folder above,
/// which stands before it, is part of its own.
void PreviewView::findFolder(std::size_t folder) {
    const PreviewRows::Folder& place = rows_.folders()[folder];
    const bool above = place.parent != PreviewRows::kNone && folderFits_[place.parent] != 0;
    const bool spans = needle_.find(platform::kPathSeparator) != std::string::npos;
    const bool fits =
        above || needle_.empty() || contains(place.name, needle_, letters_) ||
        (spans && contains(rows_.folderPath(static_cast<std::uint32_t>(folder)), needle_, letters_));
    folderFits_.push_back(fits ? 1 : 0);
}

bool PreviewView::shows(const PreviewRow& row) const {
    return folderFits_[row.folder] != 0 || contains(row.name, needle_, letters_);
}

bool PreviewView::select(Items& items) {
    for (std::uint32_t row = 0; row < rows_.size(); ++row) {
        if (row % kSlice == 0 && superseded())
            return false;
        if (shows(rows_[row]))
            items.push_back({0, row});
    }
    return true;
}

std::uint64_t PreviewView::keyOf(std::uint32_t at, By by) const {
    const PreviewRow& row = rows_[at];
    switch (by) {
    case By::Name:
        return beginning(row.name);
    case By::Folder:
        return ranks_[row.folder];
    case By::Why:
        return static_cast<std::uint64_t>(row.why);
    case By::Size:
        return rows_.bytes(at);
    case By::Age: // the youngest first
        return static_cast<std::uint64_t>(INT64_MAX) - static_cast<std::uint64_t>(row.facts.modified);
    case By::Found:
        break;
    }
    return 0;
}

bool PreviewView::sort(Items& items, By by, bool descending) {
    if (by == By::Found && !descending)
        return true;
    for (std::size_t i = 0; i < items.size(); ++i) {
        if (i % kSlice == 0 && superseded())
            return false;
        items[i].key = by == By::Found ? items[i].row : keyOf(items[i].row, by);
    }
    const auto less = [this, by](const Item& one, const Item& other) {
        if (one.key != other.key || by != By::Name)
            return one.key < other.key;
        return lessWithoutCase(rows_[one.row].name, rows_[other.row].name);
    };
    const auto goesOn = [this] { return !superseded(); };
    return descending ? slicedSort(
                            items, [&less](const Item& a, const Item& b) { return less(b, a); }, goesOn)
                      : slicedSort(items, less, goesOn);
}

bool PreviewView::sameGroup(std::uint32_t one, std::uint32_t other) const {
    if (wish_.group == Group::Folder)
        return ranks_[rows_[one].folder] == ranks_[rows_[other].folder];
    const std::string_view a = rows_[one].name;
    const std::string_view b = rows_[other].name;
    return !lessWithoutCase(a, b) && !lessWithoutCase(b, a);
}

} // namespace brovin::cleaner
