#pragma once

#include "cleaner/folder_sweep.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace brovin::cleaner {

/// What became of a row since it was found.
enum class RowState : std::uint8_t {
    Found,
    Left, ///< was to be deleted, and stayed: by an answer, the Keep List, or because it carries something
    Deleted,
    Failed,  ///< the disk refused
    Changed, ///< is gone, or another entry than the one that was shown
};

/// An entry that the next scan would delete.
struct PreviewRow {
    std::string_view name;      ///< in the disk's own bytes; lives as long as the rows
    platform::EntryFacts facts; ///< with what tells it from another one
    std::uint32_t folder = 0;   ///< see PreviewRows::folderPath
    Match why = Match::None;    ///< Listed: the name on the list is its own in lower case
};

/// What changes about a row while it is looked at.
struct RowMark {
    RowState state = RowState::Found;
    bool chosen = true;
};

/// All of them in the order of the sweep, in little memory: what belongs to one folder stands together, and
/// of a folder only its own name is kept. Marks and sizes stand apart and close together, so that a million
/// of them are ticked and counted within some milliseconds, in whatever order.
class PreviewRows {
public:
    static constexpr std::uint32_t kNone = UINT32_MAX;

    struct Folder {
        std::string_view name;        ///< of a watched folder: its full path
        std::uint32_t parent = kNone; ///< of a watched folder: kNone
        std::uint32_t firstRow = 0;
        std::uint32_t rows = 0; ///< in the folder itself
    };
    struct Sum {
        std::size_t rows = 0;
        std::uint64_t bytes = 0;
    };

    PreviewRows() = default;
    PreviewRows(const PreviewRows&) = delete;
    PreviewRows& operator=(const PreviewRows&) = delete;

    void clear();
    /// The sweep begins with a watched folder.
    void beginTop(const std::string& truePath);
    void add(const Deletion& deletion);

    [[nodiscard]] std::size_t size() const { return rows_.size(); }
    [[nodiscard]] const PreviewRow& operator[](std::size_t row) const { return rows_[row]; }
    [[nodiscard]] RowMark& mark(std::size_t row) { return marks_[row]; }
    [[nodiscard]] const RowMark& mark(std::size_t row) const { return marks_[row]; }
    /// In the file, or in all files of the folder.
    [[nodiscard]] std::uint64_t bytes(std::size_t row) const { return bytes_[row]; }
    /// Of all rows that are chosen.
    [[nodiscard]] Sum chosen() const;

    [[nodiscard]] const std::vector<Folder>& folders() const { return folders_; }
    /// In the disk's own bytes, with a separator at its end.
    [[nodiscard]] std::string folderPath(std::uint32_t folder) const;
    [[nodiscard]] std::string path(std::size_t row) const {
        return folderPath(rows_[row].folder).append(rows_[row].name);
    }

private:
    struct Level {
        std::uint32_t folder;
        std::size_t length; ///< of the path up to and with it
    };

    std::string_view keep(std::string_view text);
    void enter(std::string_view path);
    void push(std::string_view name, std::uint32_t parent, std::size_t length);

    std::deque<PreviewRow> rows_; // not a vector, which would hold all twice while it grows
    std::vector<RowMark> marks_;
    std::vector<std::uint64_t> bytes_;
    std::vector<Folder> folders_;
    std::vector<std::unique_ptr<char[]>> texts_;
    char* free_ = nullptr;      ///< where the next text goes in the last of them
    std::size_t room_ = 0;      ///< and what is left behind that
    std::string path_;          ///< of the folder that was added to last
    std::vector<Level> levels_; ///< the way down to it
};

} // namespace brovin::cleaner
