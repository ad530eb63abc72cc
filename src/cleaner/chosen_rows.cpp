#include "cleaner/chosen_rows.h"

#include <algorithm>

namespace brovin::cleaner {

ChosenRows::ChosenRows(PreviewRows& rows) : rows_(rows), wanted_(rows.folders().size(), 0) {
    const auto& folders = rows_.folders();
    for (std::uint32_t row = 0; row < rows_.size(); ++row) {
        if (!rows_[row].chosen || rows_[row].state == RowState::Deleted)
            continue;
        rows_[row].state = RowState::Found;
        for (std::uint32_t at = rows_[row].folder; at != PreviewRows::kNone && wanted_[at] == 0;
             at = folders[at].parent)
            wanted_[at] = 1;
    }
    for (std::uint32_t folder = 0; folder < folders.size(); ++folder) {
        if (wanted_[folder] == 0)
            continue;
        if (folders[folder].parent == PreviewRows::kNone)
            tops_.push_back(folder);
        else
            below_.emplace(std::pair(folders[folder].parent, folders[folder].name), folder);
    }
}

bool ChosenRows::begin(const std::string& truePath) {
    const std::string path =
        truePath.ends_with(platform::kPathSeparator) ? truePath : truePath + platform::kPathSeparator;
    const auto top = std::find_if(tops_.begin(), tops_.end(),
                                  [&](std::uint32_t folder) { return rows_.folders()[folder].name == path; });
    way_.clear();
    if (top == tops_.end())
        return false;
    stand(*top);
    tops_.erase(top); // the same folder may stand on the list twice
    return true;
}

bool ChosenRows::leadsInto(std::string_view trueName) const {
    return below_.contains(std::pair(way_.back(), trueName));
}

void ChosenRows::enter(std::string_view trueName) {
    stand(below_.find(std::pair(way_.back(), trueName))->second);
}

/// The sweep has been through all entries of a folder before it goes down from it: those above are done with.
void ChosenRows::leave() {
    way_.pop_back();
    here_.clear();
}

void ChosenRows::stand(std::uint32_t folder) {
    way_.push_back(folder);
    here_.clear();
    const PreviewRows::Folder& place = rows_.folders()[folder];
    for (std::uint32_t row = place.firstRow; row < place.firstRow + place.rows; ++row)
        if (rows_[row].chosen && rows_[row].state == RowState::Found)
            here_.emplace(rows_[row].name, row);
}

bool ChosenRows::takes(platform::FolderEntries& folder, const platform::Entry& entry) {
    const auto found = here_.find(entry.trueName);
    if (found == here_.end())
        return false;
    taken_ = found->second;
    PreviewRow& row = rows_[taken_];
    const auto facts = folder.facts(entry.trueName);
    const bool same = facts && facts->sameEntry(row.facts);
    row.state = same ? RowState::Left : RowState::Changed;
    return same;
}

void ChosenRows::tried(bool deleted) {
    rows_[taken_].state = deleted ? RowState::Deleted : RowState::Failed;
}

void ChosenRows::finish() {
    for (std::size_t row = 0; row < rows_.size(); ++row)
        if (rows_[row].chosen && rows_[row].state == RowState::Found)
            rows_[row].state = RowState::Changed;
}

} // namespace brovin::cleaner
