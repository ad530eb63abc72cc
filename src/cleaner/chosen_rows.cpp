#include "cleaner/chosen_rows.h"

#include "cleaner/sliced_sort.h"

#include <algorithm>
#include <bit>
#include <functional>

namespace brovin::cleaner {
namespace {

constexpr std::uint32_t kNone = PreviewRows::kNone;

} // namespace

/// Which folders lead to what is chosen.
void ChosenRows::prepare() {
    prepared_ = true;
    const auto& folders = rows_.folders();
    std::vector<char> wanted(folders.size(), 0); // something chosen is in it or below it
    for (std::uint32_t row = 0; row < rows_.size(); ++row) {
        pump_.pump();
        RowMark& mark = rows_.mark(row);
        if (!mark.chosen || mark.state == RowState::Deleted)
            continue;
        mark.state = RowState::Found;
        for (std::uint32_t at = rows_[row].folder; at != kNone && wanted[at] == 0; at = folders[at].parent)
            wanted[at] = 1;
    }
    for (std::uint32_t folder = 0; folder < folders.size(); ++folder)
        if (wanted[folder] != 0)
            (folders[folder].parent == kNone ? tops_ : below_).push_back(folder);
    const auto less = [&folders](std::uint32_t one, std::uint32_t other) {
        return folders[one].parent != folders[other].parent ? folders[one].parent < folders[other].parent
                                                            : folders[one].name < folders[other].name;
    };
    slicedSort(below_, less, [this] {
        pump_.pump();
        return true;
    });
}

bool ChosenRows::begin(const std::string& truePath) {
    if (!prepared_)
        prepare();
    const std::string path =
        truePath.ends_with(platform::kPathSeparator) ? truePath : truePath + platform::kPathSeparator;
    const auto top = std::find_if(tops_.begin(), tops_.end(),
                                  [&](std::uint32_t folder) { return rows_.folders()[folder].name == path; });
    way_.clear();
    if (top == tops_.end())
        return false;
    const std::uint32_t folder = *top;
    tops_.erase(top); // the same folder may stand on the list twice
    stand(folder);
    return true;
}

/// The wanted folder of this name in the current one; kNone: it has none.
std::uint32_t ChosenRows::below(std::string_view trueName) const {
    const auto& folders = rows_.folders();
    const std::uint32_t parent = way_.back();
    const auto found = std::lower_bound(below_.begin(), below_.end(), trueName,
                                        [&folders, parent](std::uint32_t folder, std::string_view name) {
                                            return folders[folder].parent != parent
                                                       ? folders[folder].parent < parent
                                                       : folders[folder].name < name;
                                        });
    const bool there =
        found != below_.end() && folders[*found].parent == parent && folders[*found].name == trueName;
    return there ? *found : kNone;
}

bool ChosenRows::leadsInto(std::string_view trueName) const {
    return below(trueName) != kNone;
}

void ChosenRows::enter(std::string_view trueName) {
    stand(below(trueName));
}

/// The sweep has been through all entries of a folder before it goes down from it: those above are done with.
void ChosenRows::leave() {
    way_.pop_back();
    here_ = {};
}

void ChosenRows::stand(std::uint32_t folder) {
    way_.push_back(folder);
    const PreviewRows::Folder& at = rows_.folders()[folder];
    here_ = {};
    if (at.rows == 0)
        return;
    here_.assign(2 * std::bit_ceil(std::size_t{at.rows}), kNone); // half of it stays free
    for (std::uint32_t row = at.firstRow; row < at.firstRow + at.rows; ++row) {
        pump_.pump();
        if (rows_.mark(row).chosen && rows_.mark(row).state == RowState::Found)
            place(rows_[row].name) = row;
    }
}

/// Where the row of this name stands, or would.
std::uint32_t& ChosenRows::place(std::string_view trueName) {
    std::size_t at = std::hash<std::string_view>{}(trueName) % here_.size();
    while (here_[at] != kNone && rows_[here_[at]].name != trueName)
        at = (at + 1) % here_.size();
    return here_[at];
}

bool ChosenRows::takes(platform::FolderEntries& folder, const platform::Entry& entry) {
    const std::uint32_t row = here_.empty() ? kNone : place(entry.trueName);
    if (row == kNone)
        return false;
    taken_ = row;
    const auto facts = folder.facts(entry.trueName);
    const bool same = facts && facts->sameEntry(rows_[row].facts);
    rows_.mark(row).state = same ? RowState::Left : RowState::Changed;
    return same;
}

void ChosenRows::tried(bool deleted) {
    rows_.mark(taken_).state = deleted ? RowState::Deleted : RowState::Failed;
}

void ChosenRows::finish() {
    for (std::size_t row = 0; row < rows_.size(); ++row)
        if (rows_.mark(row).chosen && rows_.mark(row).state == RowState::Found)
            rows_.mark(row).state = RowState::Changed;
}

} // namespace brovin::cleaner
